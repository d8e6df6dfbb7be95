#pragma once

/// How opening a database file ended.
enum class OpenOutcome {
    Created,  ///< the file was absent and has been made
    Existed,
    Missing,   ///< absent, and creating was not asked for
    ReadOnly,  ///< open for reading, but not writable
    Locked,    ///< another program held it for too long
    Damaged,   ///< or no database at all
    Foreign,   ///< another program's, an empty file where none is to be made, or a folder
    Newer,     ///< made by a newer version of the program
    Failed     ///< anything else: see Error()
};

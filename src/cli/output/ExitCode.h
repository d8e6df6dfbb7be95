#pragma once

/// What the program tells its caller. Fixed: scripts depend on the numbers.
enum class ExitCode : int {
    Done = 0,
    Failed = 1,   ///< nothing half-written unless the message says so
    Usage = 2,    ///< the command line can't be understood
    Refused = 3,  ///< the running window owns what was asked for and can't be told
    NotFound = 4  ///< an identity, a name, a file
};

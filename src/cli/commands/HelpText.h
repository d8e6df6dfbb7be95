#pragma once

class COutput;
struct CommandRow;
struct GroupRow;

/// Writes what can be asked for: of a command, of a group, or of the program when both are null.
void WriteHelp(COutput& out, const GroupRow* group, const CommandRow* command);

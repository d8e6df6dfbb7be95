#pragma once

class CRowListener;
struct sqlite3;

/// Lets a listener hear of the rows that a connection changes; null: nobody.
void HookRows(sqlite3* db, CRowListener* listener);

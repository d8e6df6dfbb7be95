#pragma once

class QString;

/// Takes new texts into the pick lists, without asking.
class CItemKeeper {
 public:
    virtual ~CItemKeeper() = default;
    /// False for a text that the list refuses, one that it holds already for example, and for one that could
    /// not be stored.
    virtual bool Keep(int list, const QString& text) = 0;
};

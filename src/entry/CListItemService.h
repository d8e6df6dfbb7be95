#pragma once

class QString;

/// Takes new texts into the pick lists, without asking.
class CListItemService {
 public:
    virtual ~CListItemService() = default;
    /// False for a text that the list refuses, one that it holds already for example, and for one that could
    /// not be stored.
    virtual bool Add(int list, const QString& text) = 0;
};

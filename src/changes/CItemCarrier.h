#pragma once

#include <QString>
#include <optional>

/// What holds texts of list items beside the records, and takes over the new text of one with them.
class CItemCarrier {
 public:
    virtual ~CItemCarrier() = default;
    /// The records have the new text, durably. In how many places it was taken over as well; nothing where it
    /// could not be, of which the user is told.
    [[nodiscard]] virtual std::optional<int> Carry(int list, const QString& oldText,
                                                   const QString& newText) = 0;
};

#pragma once

#include <QString>
#include <array>
#include <optional>

class CTRecord;

/// What a time record says of the work: its first four items (client, project, activity and cost centre by
/// their default names) and its notes.
struct Work {
    static constexpr std::size_t kItems = 4;

    std::array<QString, kItems> items;
    QString notes;

    bool operator==(const Work&) const = default;
    [[nodiscard]] bool HasItems() const;
    [[nodiscard]] bool IsEmpty() const { return !HasItems() && notes.isEmpty(); }
    [[nodiscard]] const QString& Client() const { return items.front(); }
};
// Qt finds it by this name.
// NOLINTNEXTLINE(readability-identifier-naming)
[[nodiscard]] std::size_t qHash(const Work& work, std::size_t seed = 0);

/// The pick list of an item of work.
[[nodiscard]] int ListOfWorkItem(std::size_t item);

[[nodiscard]] Work WorkOf(const CTRecord& record);
/// The work that a record has in common with others like it: without its notes, unless they are all it has.
[[nodiscard]] Work KindOfWork(const CTRecord& record);
/// "Client A · Project Alpha · Design": the items that are there, then the first line of the notes.
[[nodiscard]] QString WorkWords(const Work& work);

/// On what terms work is done: what a record of it takes over from the last one.
struct WorkTerms {
    QString currency;
    bool isBillable = false;
    std::optional<float> rate;

    bool operator==(const WorkTerms&) const = default;
};
[[nodiscard]] WorkTerms TermsOf(const CTRecord& record);

/// Items and notes become those of the work.
void PutWork(const Work& work, CTRecord& record);
/// What the record has of its own stays: a currency, and whether it is billable once that is said.
void PutTerms(const WorkTerms& terms, CTRecord& record);

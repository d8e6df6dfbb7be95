#pragma once

#include "reports/definition/CReportDef.h"

#include <QHash>
#include <QList>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class CVORec;
struct FieldRow;
enum class RecordKind : int;

/// How the values of a sort key are compared.
enum class KeyForm {
    None,      ///< records are equal in it
    Number,    ///< day, time of day, money, flag: the less goes first
    Text,      ///< folded to one case, by code units
    Span,      ///< equal where one is unset
    Distance,  ///< two numbers, where both texts are ones; else what is stored
};

/// What the records of a report are sorted by, taken of each record once: texts are folded once, and nothing
/// else of the records is needed. The comparison isn't always an order (two spans are equal where one is
/// unset), so how it is asked matters: a merge sort from the top down, in which a record of the right half
/// goes first only where it is less.
class CSortKeys {
 public:
    /// Of records of one kind, times or expenses.
    CSortKeys(RecordKind kind, const QList<SortKey>& keys);

    void Reserve(std::size_t records);
    /// The keys of the next record.
    void Add(const CVORec& record);
    /// The places of the records in their order, counted from 0 as they were added. before: the order in
    /// which they stand before the keys act; none: as they were added. Once.
    [[nodiscard]] std::vector<std::uint32_t> Order(std::span<const std::uint32_t> before = {});

 private:
    /// The values of all records in one key.
    struct Column {
        const FieldRow* field = nullptr;
        KeyForm form = KeyForm::None;
        int direction = 0;
        std::vector<double> values{};            ///< of a text its rank; no number: unset
        std::vector<double> stored{};            ///< of distances only
        QHash<QString, std::uint32_t> texts{};   ///< which folded text a text is
        QHash<QString, std::uint32_t> folded{};  ///< the folded ones, by the order in which they came
    };
    /// A record, with the values of its first two keys beside it: most comparisons end there.
    struct Item {
        double first;
        double second;
        std::uint32_t place;
    };

    static void AddTo(Column& column, const CVORec& record);
    static void AddText(Column& column, const QString& text);
    static void RankTexts(Column& column);
    [[nodiscard]] static bool IsPlain(const Column& column);
    [[nodiscard]] static int Compare(const Column& column, std::uint32_t a, std::uint32_t b);
    [[nodiscard]] bool IsLess(const Item& a, const Item& b) const;
    [[nodiscard]] std::vector<Item> MakeItems(std::span<const std::uint32_t> before);
    [[nodiscard]] std::vector<std::uint32_t> OrderBefore(std::span<const std::uint32_t> before) const;
    void DropPlainValues();
    void Sort(std::vector<Item>& items, std::vector<Item>& left, std::size_t low, std::size_t high) const;
    void Merge(std::vector<Item>& items, std::vector<Item>& left, std::size_t low, std::size_t middle,
               std::size_t high) const;

    std::uint32_t m_count = 0;
    std::vector<Column> m_columns;
    std::size_t m_plain = 0;  ///< how many keys at the front are told apart by "less" alone, two at most
};

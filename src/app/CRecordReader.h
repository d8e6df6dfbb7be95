#pragma once

#include "records/CVORec.h"
#include "records/RecordColumns.h"
#include "records/RowConditions.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class CTimerService;
class CVelmarchDoc;
enum class Ahead;

/// Reads the stored records of a kind that the document's filter lets pass, a few rows at a time: a lifetime
/// of records never lies in memory. The document holds none of them.
class CRecordReader {
 public:
    enum class Order { Any, OfDays };
    using Take = std::function<void(std::unique_ptr<CVORec> record)>;

    /// timers: who knows which records have one; null: none has.
    CRecordReader(CVelmarchDoc& document, RecordKind kind, const CTimerService* timers);

    [[nodiscard]] RecordKind Kind() const { return m_kind; }
    /// All of one moment: nobody changes the store until the last one was taken, so take must not wait for
    /// anything. Of days: by date, those of one day by identity. False when they can't be read; the user was
    /// told.
    [[nodiscard]] bool ReadAll(Order order, const Take& take);
    /// The same in no promised order, with these columns of the table read and no others where the filter
    /// allows it. The record is good until the next one.
    using See = std::function<void(const CVORec& record)>;
    [[nodiscard]] bool ReadColumns(ColumnSet columns, const See& see);
    struct Days {
        std::vector<std::unique_ptr<CVORec>> records;  ///< by date, those of one day by identity
        std::optional<RowDay> next;                    ///< the first day after them, if there is one
    };
    /// Those of whole days from this one on, of as many days as it takes to have so many; the store is free
    /// again afterwards.
    [[nodiscard]] bool ReadDays(const RowDay& from, std::size_t least, Days& days);
    [[nodiscard]] static RowDay DayOf(const CVORec& record);
    /// Those with these identities in the order of these, as they are stored now; the store is free again
    /// when the first one is taken. Null for one that is gone or doesn't pass (any more).
    [[nodiscard]] bool Read(const QStringList& ids, const Take& take);

 private:
    /// False ends the walk.
    using Step = std::function<bool(std::unique_ptr<CVORec> record)>;
    [[nodiscard]] RowConditions Conditions() const;
    [[nodiscard]] bool IsPeriodAlone() const;
    [[nodiscard]] bool Walk(const QString& statement, Ahead ahead, const Step& step);
    [[nodiscard]] bool WalkRowByRow(const QString& statement, const Step& step);

    CVelmarchDoc& m_document;
    RecordKind m_kind;
    std::function<bool(const CVORec& record)> m_passes;
};

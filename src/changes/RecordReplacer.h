#pragma once

#include "changes/Outcome.h"
#include "records/CVORec.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

class CRecordStore;
class CVelmarchDoc;
struct ListRow;

/// Carries the new text of a list item into the records that hold the old one. Times and expenses, shown or
/// not, change together or not at all; the views are told once before and once after.
class RecordReplacer {
 public:
    explicit RecordReplacer(CVelmarchDoc& document);

    /// The outcome has the records that took the new text.
    /// alongside: writes what else belongs to the change into its transaction; false, told, undoes all of it.
    [[nodiscard]] Outcome Replace(const ListRow& row, const QString& oldText, const QString& newText,
                                  const std::function<bool()>& alongside = {});

 private:
    /// The field that changes.
    struct Field {
        RecordKind kind;
        const ListRow& row;
        [[nodiscard]] QString& Of(CVORec& record) const;
    };
    /// The records of one kind.
    struct Batch {
        Field field;
        bool isShown;  ///< of the mode in use: the views are told
        QStringList ids;
        qsizetype done = 0;
    };

    [[nodiscard]] std::vector<Batch> Batches(const ListRow& row) const;
    [[nodiscard]] std::optional<QStringList> Holders(const Field& field, const QString& text);
    [[nodiscard]] Outcome ReplaceAll(std::vector<Batch>& batches, const QString& oldText,
                                     const QString& newText, const std::function<bool()>& alongside);
    [[nodiscard]] bool FindHolders(std::vector<Batch>& batches, const QString& oldText);
    [[nodiscard]] Outcome ChangeAll(std::vector<Batch>& batches, const QString& newText);
    [[nodiscard]] bool Change(Batch& batch, const QString& newText);
    void PutBack(const Batch& batch, const QString& oldText);
    void Announce(const std::vector<Batch>& batches, bool isDone, const QString& oldText);

    CVelmarchDoc& m_document;
    CRecordStore& m_store;
};

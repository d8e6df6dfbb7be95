#pragma once

#include "records/CVORec.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

class CRecordStore;
class CVelmarchDoc;
struct ListRow;

/// Carries the new text of a list item into the records that hold the old one. Times and expenses, shown or
/// not, change together or not at all; the views are told once before and once after.
class RecordReplacer {
 public:
    RecordReplacer(CRecordStore& store, CVelmarchDoc& document) : m_store(store), m_document(document) {}

    /// How many records took the new text: 0 when the change failed, which the user was told.
    int Replace(const ListRow& row, const QString& oldText, const QString& newText);

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
        bool isShown;  ///< of the mode in use: goes through the document
        QStringList ids;
        qsizetype done = 0;
    };

    [[nodiscard]] std::vector<Batch> Batches(const ListRow& row) const;
    [[nodiscard]] std::optional<QStringList> Holders(const Field& field, const QString& text);
    [[nodiscard]] bool Change(Batch& batch, const QString& newText);
    void PutBack(const Batch& batch, const QString& oldText);
    void Announce(const std::vector<Batch>& batches, bool isDone, const QString& oldText);

    CRecordStore& m_store;
    CVelmarchDoc& m_document;
};

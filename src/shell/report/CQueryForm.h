#pragma once

#include "fields/FieldId.h"
#include "records/CVORec.h"
#include "reports/query/StoredQuery.h"
#include "shell/report/FilterDialogContext.h"

#include <QWidget>
#include <array>

class CItemCombo;
class CMnemonics;
class QCheckBox;
class QGridLayout;
class QVBoxLayout;

/// What a filter dialog asks of records, without the period: the texts of the five items, how texts compare,
/// and in a subclass the rest of its mode.
class CQueryForm : public QWidget {
    Q_OBJECT

 public:
    virtual void ShowQuery(const StoredQuery& query) = 0;
    /// The parts of the query that stand here.
    virtual void ReadQuery(StoredQuery& query) const = 0;

 protected:
    CQueryForm(RecordKind kind, const FilterDialogContext& context);

    void AddItems(CMnemonics& mnemonics);
    /// In the second column, below what is there.
    void AddMatching(CMnemonics& mnemonics);
    /// A field that offers the word for any, then the items of a list.
    [[nodiscard]] CItemCombo* MakePulldown(int list) const;
    void ShowFields(const QueryFields& query);
    void ReadFields(QueryFields& query) const;
    [[nodiscard]] QString LabelOf(FieldId field) const;
    [[nodiscard]] QGridLayout& Form() { return *m_form; }
    [[nodiscard]] QVBoxLayout& Second() { return *m_second; }

 private:
    RecordKind m_kind;
    FilterDialogContext m_context;
    QGridLayout* m_form;    ///< labels and fields
    QVBoxLayout* m_second;  ///< beside them
    std::array<CItemCombo*, 5> m_items{};
    QCheckBox* m_whole = nullptr;
    QCheckBox* m_case = nullptr;
};

/// The text of a pulldown; an empty one stands for any.
[[nodiscard]] QString CriterionOf(const CItemCombo& field);

#pragma once

#include "reports/query/StoredQuery.h"
#include "shell/report/FilterDialogContext.h"

#include <QWidget>

class CDateEdit;
class CMnemonics;
class CPickEdit;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;

/// The period of a query: whether there is one, which, and of which days. A period that has a name shows the
/// days that it covers today.
class CPeriodBox final : public QWidget {
    Q_OBJECT

 public:
    CPeriodBox(const FilterDialogContext& context, CMnemonics& mnemonics);

    void ShowQuery(const QueryFields& query);
    /// The parts of the query that stand here.
    void ReadQuery(QueryFields& query) const;
    /// The first date that counts and can't be read; null when there is none.
    [[nodiscard]] CPickEdit* FirstUnreadable() const;

 private:
    void Build(CMnemonics& mnemonics);
    [[nodiscard]] CDateEdit* AddDate(QGridLayout& form, int column, Text label, const char* name,
                                     CMnemonics& mnemonics);
    void ShowDate(CDateEdit& field, const QString& text) const;
    [[nodiscard]] QString TextOf(const CDateEdit& field) const;
    void Follow();
    void ShowDaysOfRow();
    void ShowRangeNote();

    FilterDialogContext m_context;
    QCheckBox* m_isOn = nullptr;
    QComboBox* m_row = nullptr;
    CDateEdit* m_from = nullptr;
    CDateEdit* m_to = nullptr;
    QLabel* m_note = nullptr;
};

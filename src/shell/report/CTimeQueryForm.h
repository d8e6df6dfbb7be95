#pragma once

#include "shell/report/CQueryForm.h"

class QComboBox;

/// What the filter dialog asks of time records.
class CTimeQueryForm final : public CQueryForm {
    Q_OBJECT

 public:
    CTimeQueryForm(const FilterDialogContext& context, CMnemonics& mnemonics);

    void ShowQuery(const StoredQuery& query) override;
    void ReadQuery(StoredQuery& query) const override;

 private:
    QComboBox* m_billable = nullptr;
    QComboBox* m_billed = nullptr;
};

#pragma once

#include "app/RecordMode.h"

#include <QString>
#include <QStringList>
#include <memory>

class CItemCombo;
class CMnemonics;
class CPulldownCatalogue;
class QGridLayout;
struct Settings;

/// Makes the fields of one dialog that hold items of lists, and lets each offer what goes with the texts that
/// stand above it in the chain of dependencies.
class CItemFields {
 public:
    /// catalogue and settings must outlive the fields.
    CItemFields(const CPulldownCatalogue& catalogue, RecordMode mode, const Settings& settings);
    ~CItemFields();
    CItemFields(const CItemFields&) = delete;
    CItemFields& operator=(const CItemFields&) = delete;

    [[nodiscard]] CItemCombo* Make(int list) const;
    /// A new row of a form: the label in column 0, the field beside it.
    CItemCombo* AddRow(QGridLayout& form, int list, const QString& label, const QString& objectName,
                       CMnemonics& mnemonics) const;
    /// What stands in the chain for a list that has no field in this dialog.
    void SetText(int list, const QString& text);
    /// What the fields hold down to this list, without it, in the order of the chain.
    [[nodiscard]] QStringList PathOf(int list) const;

 private:
    struct Chain;
    const CPulldownCatalogue& m_catalogue;
    const Settings& m_settings;
    std::shared_ptr<Chain> m_chain;  ///< shared with the fields, which may be destroyed later
};

#include "shell/controls/CItemFields.h"

#include "config/Settings.h"
#include "lang/LoadText.h"
#include "lists/DependencyChain.h"
#include "shell/controls/CItemCombo.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QGridLayout>
#include <QHash>
#include <QLineEdit>
#include <QPointer>

/// The texts of the chain: what the fields hold, or what was set where there is no field.
struct CItemFields::Chain {
    RecordMode mode;
    QHash<int, QPointer<CItemCombo>> fields;
    QHash<int, QString> texts;

    [[nodiscard]] QStringList PathOf(int list) const {
        QStringList path;
        if (ChainDepth(mode, list) == 0) return path;
        for (const int above : DependencyChain(mode)) {
            if (above == list) break;
            const CItemCombo* field = fields.value(above);
            path << (field ? field->Text() : texts.value(above));
        }
        return path;
    }
};

CItemFields::CItemFields(const CPulldownCatalogue& catalogue, RecordMode mode, const Settings& settings)
    : m_catalogue(catalogue), m_settings(settings), m_chain(std::make_shared<Chain>()) {
    m_chain->mode = mode;
}

CItemFields::~CItemFields() = default;

CItemCombo* CItemFields::Make(int list) const {
    const auto offer = [&catalogue = m_catalogue, &settings = m_settings, chain = m_chain, list] {
        return PulldownTexts(catalogue, chain->mode, list, chain->PathOf(list), settings);
    };
    const auto whyEmpty = [&settings = m_settings, chain = m_chain, list] {
        const bool isFiltered = settings.useDependencies && ChainDepth(chain->mode, list) > 1;
        return LoadText(isFiltered ? Text::NothingUnderPath : Text::ListIsEmpty);
    };
    auto* field = new CItemCombo(offer, whyEmpty);
    m_chain->fields.insert(list, field);
    return field;
}

CItemCombo* CItemFields::AddRow(QGridLayout& form, int list, const QString& label, const QString& objectName,
                                CMnemonics& mnemonics) const {
    CItemCombo* field = Make(list);
    const int row = form.rowCount();
    AddLabel(form, row, label, *field, objectName, mnemonics);
    NameWidget(*field->lineEdit(), objectName + QStringLiteral("Text"), label);
    form.addWidget(field, row, 1);
    return field;
}

void CItemFields::SetText(int list, const QString& text) {
    m_chain->texts.insert(list, text);
}

QStringList CItemFields::PathOf(int list) const {
    return m_chain->PathOf(list);
}

#include "viewmodel/program/CStartCheck.h"

#include "lang/FormatText.h"
#include "platform/host/CLauncher.h"
#include "platform/host/CPrompt.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

QString WrongFindings(const QByteArray& json) {
    QStringList paragraphs;
    const QJsonObject report = QJsonDocument::fromJson(json).object();
    const QJsonArray checks = report[u"checks"].toArray();
    for (const auto& entry : checks) {
        const QJsonObject check = entry.toObject();
        if (check[u"ok"].toBool(true)) continue;  // sound, or not looked at
        const QString advice = check[u"advice"].toString();
        const QString detail = check[u"detail"].toString();
        paragraphs.append(advice.isEmpty() ? detail : FormatText<Text::StartCheckFinding>(detail, advice));
    }
    return paragraphs.join(u"\n\n"_s);
}

bool IsStoreDamaged(const QByteArray& json) {
    return QJsonDocument::fromJson(json).object()[u"storeDamaged"].toBool(false);
}

void CStartCheck::Begin(const QString& console, const QString& home) {
    m_context.launcher.RunInBackground(console, {u"--json"_s, u"--home"_s, home, u"doctor"_s},
                                       [this](const QByteArray& output) { Report(output); });
}

void CStartCheck::Report(const QByteArray& output) {
    if (IsStoreDamaged(output) && m_context.storeIsDamaged) m_context.storeIsDamaged();
    const QString wrong = WrongFindings(output);
    if (wrong.isEmpty()) return;
    m_context.whenFree([this, wrong] {
        MessageBox box;
        box.textId = static_cast<int>(Text::StartCheckFound);
        box.title = LoadText(Text::ProgramTitle);
        box.text = FormatText<Text::StartCheckFound>(wrong);
        box.icon = BoxIcon::Warning;
        m_context.prompt.Tell(box);
    });
}

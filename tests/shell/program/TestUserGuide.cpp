#include "lang/LoadText.h"
#include "platform/host/CInstallLocation.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/CommandTable.h"
#include "viewmodel/commands/CommandWords.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// What docs/user-guide.md says of keys and pictures is read and compared with the program.
class TestUserGuide : public QObject {
    Q_OBJECT

    QString guide;

 private Q_SLOTS:
    void initTestCase();
    void KeysAreThoseOfTheCommands();
    void EveryPictureIsThereAndShown();
};

void TestUserGuide::initTestCase() {
    QVERIFY(LoadLanguageLibrary(FolderOf(ModulePath())));
    QFile file(QStringLiteral(DOCS_FOLDER "/user-guide.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    guide = QString::fromUtf8(file.readAll());
}

/// "Return, F2: Edit", a line for each command with keys. Enter on the number pad goes without saying.
void TestUserGuide::KeysAreThoseOfTheCommands() {
    QStringList expected;
    for (const CommandRow& row : CommandTable()) {
        QStringList keys = ShortcutsOf(row);
        keys.removeAll(u"Enter"_s);
        if (!keys.isEmpty())
            expected.append(keys.join(u", "_s) + u": "_s + PlainCaption(LoadText(row.caption)));
    }
    QStringList written;
    const qsizetype table = guide.indexOf(u"\n## Keys\n"_s);
    QVERIFY(table > 0);
    static const QRegularExpression rows(u"^\\| ([^|]+) \\| ([^|]+) \\|$"_s,
                                         QRegularExpression::MultilineOption);
    for (const QRegularExpressionMatch& row : rows.globalMatch(guide, table))
        if (row.captured(1) != u"Keys"_s) written.append(row.captured(1) + u": "_s + row.captured(2));
    expected.sort();
    written.sort();
    QCOMPARE(written, expected);
}

void TestUserGuide::EveryPictureIsThereAndShown() {
    const QDir folder(QStringLiteral(DOCS_FOLDER));
    QStringList shown;
    static const QRegularExpression picture(u"!\\[[^]]+\\]\\(pictures/([^)]+)\\)"_s);
    for (const QRegularExpressionMatch& match : picture.globalMatch(guide)) shown.append(match.captured(1));
    QStringList made = QDir(folder.filePath(u"pictures"_s)).entryList({u"*.png"_s});
    shown.sort();
    QCOMPARE(shown, made);
}

TEST_CLASS(TestUserGuide);
#include "TestUserGuide.moc"

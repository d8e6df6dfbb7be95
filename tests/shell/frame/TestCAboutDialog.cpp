#include "shell/frame/CAboutDialog.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QLabel>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCAboutDialog final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void version() { QCOMPARE(VersionLine(), u"8.03.0105 PPC2000"_s); }

    /// 16 GB, 4 GB of it free: a quarter; figures in whole megabytes, percentages cut.
    void memory() {
        constexpr std::uint64_t kMegabyte = 1048576;
        const QStringList lines = MemoryLines({{16384 * kMegabyte, 4096 * kMegabyte + 1},
                                               {1000 * kMegabyte, 999 * kMegabyte},
                                               {3 * kMegabyte, 2 * kMegabyte}});
        QCOMPARE(lines, (QStringList{u"Memory in use: 75 %"_s, u"Memory: 16384 MB"_s,
                                     u"Free memory: 4096 MB (25 %)"_s, u"Swap space: 1000 MB"_s,
                                     u"Free swap space: 999 MB (99 %)"_s, u"Address space: 3 MB"_s,
                                     u"Free address space: 2 MB (66 %)"_s}));
    }

    /// Without a total there is nothing to divide by.
    void totalOfNothing() {
        const QStringList lines = MemoryLines({});
        QCOMPARE(lines, (QStringList{u"Memory: 0 MB"_s, u"Free memory: 0 MB"_s, u"Swap space: 0 MB"_s,
                                     u"Free swap space: 0 MB"_s, u"Address space: 0 MB"_s,
                                     u"Free address space: 0 MB"_s}));
    }

    void shows() {
        const CAboutDialog dialog(u"/home/<b>someone</b>"_s, u"Last good backup: /b"_s);
        QCOMPARE(dialog.findChild<QLabel*>(u"aboutBackup"_s)->text(), u"Last good backup: /b"_s);
        QVERIFY(dialog.findChild<QLabel*>(u"aboutVersion"_s)->text().contains(u"8.03.0105"_s));
        QCOMPARE(dialog.findChild<QLabel*>(u"aboutHome"_s)->textFormat(), Qt::PlainText);
        QVERIFY(ReadMemoryFigures().physical.total > 0);
    }
};

TEST_CLASS(TestCAboutDialog);
#include "TestCAboutDialog.moc"

#include "app/CommandTexts.h"

#include "app/FieldLabels.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QSet>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCommandTexts : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }

    void EveryCommandOnce() {
        QSet<int> commands;
        int withField = 0;
        for (const CommandTextRow& row : CommandTextRows()) {
            commands.insert(row.command);
            if (row.field != FieldId::None) ++withField;
        }
        QCOMPARE(commands.size(), 96);
        QCOMPARE(withField, 12);
        QCOMPARE(MakeCommandTexts({}).size(), 96);
    }

    void CommandsWithoutTextsHere() {
        const QHash<int, CommandTexts> texts = MakeCommandTexts({});
        for (const int command : {1045, 32815, 40067, 32890, 32892, 32817, 32879, 0})
            QVERIFY2(!texts.contains(command), qPrintable(QString::number(command)));
    }

    void NoTextIsLeftUnfinished() {
        const QHash<int, CommandTexts> texts = MakeCommandTexts({});
        for (auto one = texts.begin(); one != texts.end(); ++one) {
            const QString command = QString::number(one.key());
            QVERIFY2(!one->tip.isEmpty() && !one->status.isEmpty(), qPrintable(command));
            QVERIFY2(!one->tip.contains(u'&') && !one->tip.endsWith(u'.'), qPrintable(command));
            QVERIFY2(!one->tip.contains(u'%') && !one->status.contains(u'%'), qPrintable(command));
        }
    }

    void Texts_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("status");
        const QString period = u"Show the records of this period"_s;
        QTest::newRow("the access key's mark goes") << 40002 << u"New record"_s << u"Make a new record"_s;
        QTest::newRow("the dots of a dialog go") << 103 << u"Edit"_s << u"Edit the selected record"_s;
        QTest::newRow("the first period") << 32798 << u"Today"_s << period;
        QTest::newRow("yesterday") << 32789 << u"Yesterday"_s << period;
        QTest::newRow("a period's own name") << 32790 << u"This week to date"_s << period;
        QTest::newRow("the last period") << 32850 << u"Next year"_s << period;
        QTest::newRow("last year") << 32823 << u"Last year"_s << period;
        QTest::newRow("all periods") << 32802 << u"All"_s << period;
        QTest::newRow("one day") << 32803 << u"A day"_s << u"Show the records of one day"_s;
        QTest::newRow("a quick command")
            << 32863 << u"From the data tree with timestamp and timer"_s
            << u"Make a record with the values of the selected tree entry that starts now, with its timer running"_s;
        QTest::newRow("a mark with the field's name")
            << 40055 << u"Mark as Billed"_s << u"Mark the selected records as Billed"_s;
    }
    void Texts() {
        QFETCH(int, command);
        const QHash<int, CommandTexts> texts = MakeCommandTexts({});
        QTEST(texts[command].tip, "tip");
        QTEST(texts[command].status, "status");
    }

    void FieldNames_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<int>("field");
        QTest::newRow("mark") << 40055 << 118;
        QTest::newRow("first list") << 32804 << 109;
        QTest::newRow("second list") << 32805 << 110;
        QTest::newRow("third list") << 32806 << 111;
        QTest::newRow("fourth list") << 32807 << 112;
        QTest::newRow("fifth list") << 32808 << 133;
        QTest::newRow("sixth list") << 32809 << 134;
        QTest::newRow("first flag") << 32832 << 117;
        QTest::newRow("second flag") << 32833 << 118;
        QTest::newRow("third flag") << 32834 << 141;
        QTest::newRow("fourth flag") << 32835 << 142;
        QTest::newRow("fifth flag") << 32836 << 140;
    }
    void FieldNames() {
        QFETCH(int, command);
        QFETCH(int, field);
        FieldLabels labels;
        labels.Set(field, u"Own %s & more..."_s);
        const CommandTexts texts = MakeCommandTexts(labels)[command];
        QVERIFY2(texts.tip.contains(u"Own %s & more..."_s), qPrintable(texts.tip));
        QVERIFY2(texts.status.contains(u"Own %s & more..."_s), qPrintable(texts.status));
    }
};

TEST_CLASS(TestCommandTexts);
#include "TestCommandTexts.moc"

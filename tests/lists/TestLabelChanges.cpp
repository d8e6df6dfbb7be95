#include "lists/LabelChanges.h"

#include "app/FieldLabels.h"
#include "lang/LoadText.h"
#include "lists/LabelSets.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// What names of fields would become, before anything is stored.
class TestLabelChanges final : public QObject {
    Q_OBJECT

    static QStringList Drawn(const FieldLabels& labels, const std::map<int, QString>& names) {
        QStringList lines;
        for (const LabelChange& change : LabelChanges(labels, names))
            lines << u"%1 %2%3: %4 -> %5"_s.arg(
                change.mode == RecordMode::Time ? u"time"_s : u"expense"_s, LoadText(change.title),
                change.isHeading ? u" heading"_s : QString(), change.now, change.then);
        return lines;
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void Defaults_data() {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("name");
        QTest::newRow("a field of time records") << 109 << u"Client"_s;
        QTest::newRow("a flag of expenses") << 140 << u"Personal"_s;
        QTest::newRow("the heading of a list") << 103 << u"Rate"_s;
        QTest::newRow("the heading of a list that isn't called as its field") << 121 << u"Descriptions"_s;
        QTest::newRow("a heading that heads no list") << 106 << u"Notes"_s;
        QTest::newRow("what names no field") << 98 << QString();
        QTest::newRow("a list itself") << 16 << QString();
        QTest::newRow("nothing") << 0 << QString();
    }
    void Defaults() {
        QFETCH(int, field);
        QTEST(DefaultLabel(field), "name");
    }
    void EveryFieldHasADefault() {
        for (int field = 99; field <= 142; ++field) QVERIFY(!DefaultLabel(field).isEmpty());
    }

    void Shown() {
        FieldLabels labels;
        QCOMPARE(ShownLabel(labels, 109), u"Client"_s);
        labels.Set(109, u"Patient"_s);
        QCOMPARE(ShownLabel(labels, 109), u"Patient"_s);
        labels.Set(109, QString());
        QCOMPARE(ShownLabel(labels, 109), u"Client"_s);
    }

    void NoNamesAtFirst() { QCOMPARE(Drawn({}, NoNames()), QStringList()); }
    void AllNamesGo() {
        FieldLabels labels;
        labels.Set(131, u"Payer"_s);
        labels.Set(99, u"Patients"_s);
        labels.Set(109, u"Patient"_s);
        labels.Set(110, u"Project"_s);  // the default all the same
        QCOMPARE(Drawn(labels, NoNames()),
                 (QStringList{u"time Client heading: Patients -> Client"_s,
                              u"time Client: Patient -> Client"_s, u"expense Client: Payer -> Client"_s}));
    }
    /// A name that the set doesn't give goes, one that it gives comes, one that is there already isn't shown.
    void ASetOfNames() {
        FieldLabels labels;
        labels.Set(111, u"Task"_s);
        labels.Set(112, u"Vehicle"_s);
        const QStringList lines = Drawn(labels, PresetNames(2));
        QVERIFY(lines.contains(u"time Activity: Task -> Job"_s));
        QVERIFY(lines.contains(u"time Cost centre heading: Cost centre -> Vehicles"_s));
        QVERIFY(lines.contains(u"expense Description heading: Descriptions -> Materials"_s));
        for (const QString& line : lines) {
            QVERIFY2(!line.startsWith(u"time Cost centre:"_s), qPrintable(line));
            QVERIFY2(!line.contains(u"Notes"_s), qPrintable(line));
        }
        labels.Set(113, u"Fee"_s);
        QVERIFY(Drawn(labels, PresetNames(2)).contains(u"time Rate: Fee -> Rate"_s));
    }
    /// A law office's set on an untouched home: what its 14 rows change of the 28 names that they give.
    void TheLawOffice() {
        QCOMPARE(
            Drawn({}, PresetNames(1)),
            (QStringList{
                u"time Project heading: Project -> Matters"_s, u"time Project: Project -> Matter"_s,
                u"time Notes heading: Notes -> Description"_s, u"time Notes: Notes -> Description"_s,
                u"expense Project heading: Project -> Matters"_s, u"expense Project: Project -> Matter"_s,
                u"expense Description heading: Descriptions -> Disbursement"_s,
                u"expense Description: Description -> Disbursement"_s,
                u"expense Amount heading: Amount -> Cost"_s, u"expense Amount: Amount -> Cost"_s,
                u"expense Notes heading: Notes -> Description"_s, u"expense Notes: Notes -> Description"_s}));
    }
    void SomeNamesOnly() {
        FieldLabels labels;
        labels.Set(109, u"Patient"_s);
        QCOMPARE(Drawn(labels, {{110, u"Case"_s}}), QStringList{u"time Project: Project -> Case"_s});
        QCOMPARE(Drawn(labels, {}), QStringList());
    }
};

TEST_CLASS(TestLabelChanges);
#include "TestLabelChanges.moc"

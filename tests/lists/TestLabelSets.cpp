#include "lists/LabelSets.h"

#include "app/CPulldownCatalogue.h"
#include "lang/LoadText.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

class TestLabelSets : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    CPulldownCatalogue* catalogue = nullptr;

    /// What is stored, also at the next start.
    QStringList Stored(int field) {
        QStringList texts;
        if (!home->store->QueryTexts(u"SELECT text FROM item_velmarch WHERE list=%1"_s.arg(field), texts))
            qFatal("the store can't be read");
        return texts;
    }

 private Q_SLOTS:
    void init();
    void cleanup();
    void Rows_data();
    void Rows();
    void EveryNameHasItsRow();
    void Presets_data();
    void Presets();
    void SetLabel_data();
    void SetLabel();
    void TakesThePlaceOfTheFormer();
    void EmptyTextFallsBackToTheDefault();
    void EmptyTextWhereThereIsNone();
    void NumbersThatNameNoField_data();
    void NumbersThatNameNoField();
    void NameThatCannotBeStored();
    void Reset();
    void ResetWithoutNames();
    void PresetTakesOtherNamesAway();
    void OneSetAfterTheOther();
    void NoSuchPreset();
    void CommandTextsFollow();
    void FailureKeepsAllNames();
    void NameThatStandsInATree();
    void NameThatCameMeanwhile();
};

void TestLabelSets::init() {
    home = std::make_unique<TestHome>();
    catalogue = home->catalogue.get();
}

void TestLabelSets::cleanup() {
    home.reset();
}

void TestLabelSets::Rows_data() {
    QTest::addColumn<RecordMode>("mode");
    QTest::addColumn<QString>("rows");
    QTest::newRow("time") << RecordMode::Time
                          << u"25711:99/109 25712:100/110 25713:101/111 25714:102/112 25715:103/113 "
                             "25716:104/114 25717:105/115 25718:106/116 25133:107/117 25193:108/118"_s;
    QTest::newRow("expenses")
        << RecordMode::Expense
        << u"25711:119/131 25712:120/132 25719:121/133 25721:122/134 25716:123/135 25717:124/136 "
           "25718:125/137 25133:126/138 25193:127/139 25722:129/141 25723:130/142 25724:128/140"_s;
}

void TestLabelSets::Rows() {
    QFETCH(RecordMode, mode);
    QFETCH(QString, rows);
    QStringList found;
    for (const LabelRow& row : LabelRows(mode)) {
        found += u"%1:%2/%3"_s.arg(static_cast<int>(row.title)).arg(row.first).arg(row.second);
        QVERIFY(!LoadText(row.title).isEmpty());
    }
    QCOMPARE(found.join(u' '), rows);
}

void TestLabelSets::EveryNameHasItsRow() {
    QList<int> fields;
    for (const RecordMode mode : {RecordMode::Time, RecordMode::Expense})
        for (const LabelRow& row : LabelRows(mode)) fields << row.first << row.second;
    std::sort(fields.begin(), fields.end());
    QCOMPARE(fields.size(), qsizetype(44));
    for (int i = 0; i < 44; ++i) QCOMPARE(fields.at(i), 99 + i);
}

/// What the user sees after a set was applied: every field's name with its heading's, in the order of the
/// rows; "-" where there is no own name.
void TestLabelSets::Presets_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<RecordMode>("mode");
    QTest::addColumn<QString>("names");
    QTest::newRow("law office, time")
        << 1 << RecordMode::Time
        << u"Client/Client Matters/Matter -/- Cost centre/Cost centre Rate/Rate "
           "-/- -/- Description/Description Billable/Billable Billed/Billed"_s;
    QTest::newRow("law office, expenses")
        << 1 << RecordMode::Expense
        << u"Client/Client Matters/Matter Disbursement/Disbursement -/- -/- Cost/Cost "
           "Description/Description Billable/Billable Billed/Billed -/- -/- -/-"_s;
    QTest::newRow("field service, time")
        << 2 << RecordMode::Time
        << u"Customer/Customer Site/Site Job/Job Vehicles/Vehicle -/- -/- -/- Notes/Notes "
           "Billable/Billable Billed/Billed"_s;
    QTest::newRow("field service, expenses")
        << 2 << RecordMode::Expense
        << u"Customer/Customer Job/Job Materials/Material Paid by/Paid by -/- Amount/Amount "
           "Notes/Notes Billable/Billable Billed/Billed -/- -/- -/-"_s;
}

void TestLabelSets::Presets() {
    QFETCH(int, preset);
    QFETCH(RecordMode, mode);
    QFETCH(QString, names);
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.ApplyPreset(preset));
    QVERIFY(editor.IsChanged());
    // In memory, and as another program finds it.
    TestHome next(home->Path());
    for (const CPulldownCatalogue* one : {catalogue, next.catalogue.get()}) {
        QStringList found;
        const auto own = [one](int field) {
            const QString name = one->Labels().Own(field);
            return name.isEmpty() ? u"-"_s : name;
        };
        for (const LabelRow& row : LabelRows(mode)) found += own(row.first) + u'/' + own(row.second);
        QCOMPARE(found.join(u' '), names);
    }
}

void TestLabelSets::SetLabel_data() {
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("a field of time records") << 109 << u"Customer"_s;
    QTest::newRow("a heading") << 99 << u"Customers"_s;
    QTest::newRow("the last field of expenses") << 142 << u"Paid back"_s;
    QTest::newRow("a field whose list is known twice") << 140 << u"My own"_s;
    QTest::newRow("quotes") << 110 << u"The \"job\", 'so to say' \U0001F4C8"_s;
    QTest::newRow("what no item of another list could be") << 111 << u"[A] CA: x"_s;
    QTest::newRow("255 characters") << 112 << QString(255, u'x');
}

void TestLabelSets::SetLabel() {
    QFETCH(int, field);
    QFETCH(QString, text);
    CLabelEditor editor(*catalogue);
    QVERIFY(!editor.IsChanged());
    QVERIFY(editor.SetLabel(field, text));
    QVERIFY(editor.IsChanged());
    QCOMPARE(Stored(field), QStringList{text});
    QCOMPARE(catalogue->Labels().GetLabel(field), text);
}

void TestLabelSets::TakesThePlaceOfTheFormer() {
    CLabelEditor editor(*catalogue);
    for (const QString& text : {u"one"_s, u"two"_s, u"two"_s}) QVERIFY(editor.SetLabel(109, text));
    QCOMPARE(Stored(109), QStringList{u"two"_s});
}

void TestLabelSets::EmptyTextFallsBackToTheDefault() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.SetLabel(109, u"Customer"_s));
    QVERIFY(editor.SetLabel(109, QString()));
    QCOMPARE(Stored(109), QStringList());
    QCOMPARE(catalogue->Labels().Own(109), QString());
    QCOMPARE(catalogue->Labels().GetLabel(109), u"Client"_s);
}

void TestLabelSets::EmptyTextWhereThereIsNone() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.SetLabel(109, QString()));
    QVERIFY(editor.IsChanged());
}

void TestLabelSets::NumbersThatNameNoField_data() {
    QTest::addColumn<int>("field");
    for (const int field : {-1, 0, 16, 98, 143, 146, 5000}) QTest::addRow("%d", field) << field;
}

void TestLabelSets::NumbersThatNameNoField() {
    QFETCH(int, field);
    QVERIFY(catalogue->AddItem(16, u"A"_s, false));
    CLabelEditor editor(*catalogue);
    QVERIFY(!editor.SetLabel(field, u"x"_s));
    QVERIFY(!editor.IsChanged());
    QCOMPARE(catalogue->Texts(16), QStringList{u"A"_s});
}

void TestLabelSets::NameThatCannotBeStored() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.SetLabel(109, u"Customer"_s));
    home->prompt.ExpectTold(Text::InsertFailed);
    QVERIFY(!editor.SetLabel(109, QString(256, u'x')));
    QCOMPARE(Stored(109), QStringList{u"Customer"_s});
    QCOMPARE(catalogue->Labels().GetLabel(109), u"Customer"_s);
}

void TestLabelSets::Reset() {
    {
        CLabelEditor editor(*catalogue);
        for (const int field : {99, 109, 118, 119, 128, 140, 142}) QVERIFY(editor.SetLabel(field, u"x"_s));
    }
    QVERIFY(catalogue->AddItem(16, u"A"_s, false));
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.Reset());
    QVERIFY(editor.IsChanged());
    for (int field = 99; field <= 142; ++field) QCOMPARE(Stored(field), QStringList());
    QCOMPARE(catalogue->Labels().GetLabel(142), u"Reimbursed"_s);
    QCOMPARE(Stored(16), QStringList{u"A"_s});
}

void TestLabelSets::ResetWithoutNames() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.Reset());
    QVERIFY(editor.IsChanged());
}

void TestLabelSets::PresetTakesOtherNamesAway() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.SetLabel(111, u"my activity"_s));
    QVERIFY(editor.SetLabel(114, u"my currency"_s));
    QVERIFY(editor.ApplyPreset(1));
    QCOMPARE(catalogue->Labels().GetLabel(111), u"Activity"_s);
    QCOMPARE(catalogue->Labels().GetLabel(114), u"Currency"_s);
    QCOMPARE(catalogue->Labels().GetLabel(110), u"Matter"_s);
}

void TestLabelSets::OneSetAfterTheOther() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.ApplyPreset(1));
    QVERIFY(editor.ApplyPreset(2));
    QCOMPARE(catalogue->Labels().GetLabel(110), u"Site"_s);
    QCOMPARE(catalogue->Labels().Own(103), QString());  // the rate, of the first set alone
    QCOMPARE(Stored(110), QStringList{u"Site"_s});
}

void TestLabelSets::NoSuchPreset() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.SetLabel(109, u"Customer"_s));
    for (const int preset : {0, 3, -1}) QVERIFY(!editor.ApplyPreset(preset));
    QCOMPARE(catalogue->Labels().GetLabel(109), u"Customer"_s);
}

void TestLabelSets::CommandTextsFollow() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.SetLabel(109, u"Customer"_s));
    const CommandTexts* texts = catalogue->TextsOf(32804);
    QVERIFY(texts);
    QVERIFY2(texts->status.contains(u"Customer"_s), qPrintable(texts->status));
}

/// The store refuses one of the names: none of the set is taken over.
void TestLabelSets::FailureKeepsAllNames() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.SetLabel(109, u"Customer"_s));
    QVERIFY(editor.SetLabel(114, u"my currency"_s));
    QVERIFY(home->manager.File().Execute(
        "CREATE TRIGGER refuse BEFORE INSERT ON item_velmarch WHEN new.text = 'Paid by' BEGIN SELECT "
        "RAISE(ABORT, 'no'); END"));
    home->prompt.ExpectTold(Text::InsertFailed);
    QVERIFY(!editor.ApplyPreset(2));
    QCOMPARE(catalogue->Labels().GetLabel(109), u"Customer"_s);
    QCOMPARE(catalogue->Labels().GetLabel(110), u"Project"_s);
    TestHome next(home->Path());
    QCOMPARE(next.catalogue->Labels().GetLabel(109), u"Customer"_s);
    QCOMPARE(next.catalogue->Labels().GetLabel(114), u"my currency"_s);
    QCOMPARE(next.catalogue->Labels().GetLabel(110), u"Project"_s);
}

/// Nothing puts it there but a damaged store; the tree can be read all the same afterwards.
void TestLabelSets::NameThatStandsInATree() {
    CLabelEditor editor(*catalogue);
    QVERIFY(editor.SetLabel(109, u"Customer"_s));
    DependencyTree& tree = catalogue->Tree(DependencySet::Time);
    tree.Append(tree.Root(), *catalogue->FindItem(109, u"Customer"_s));
    QVERIFY(catalogue->SaveTree(DependencySet::Time));
    QVERIFY(editor.SetLabel(109, u"Patient"_s));
    TestHome next(home->Path());
    QVERIFY(next.catalogue->Tree(DependencySet::Time).IsEmpty());
    QCOMPARE(next.catalogue->Labels().GetLabel(109), u"Patient"_s);
}

/// Another program has named the field since the lists were read: one name is left, the one entered last.
void TestLabelSets::NameThatCameMeanwhile() {
    {
        TestHome other(home->Path());
        QVERIFY(CLabelEditor(*other.catalogue).SetLabel(109, u"Customer"_s));
    }
    QVERIFY(CLabelEditor(*catalogue).SetLabel(109, u"Patient"_s));
    QCOMPARE(Stored(109), QStringList{u"Patient"_s});
    {
        TestHome other(home->Path());
        QVERIFY(CLabelEditor(*other.catalogue).SetLabel(110, u"Case"_s));
    }
    QVERIFY(CLabelEditor(*catalogue).Reset());
    QCOMPARE(Stored(110), QStringList());
}

TEST_CLASS(TestLabelSets);
#include "TestLabelSets.moc"

#include "exchange/import/CRecordImport.h"

#include "ImportHome.h"
#include "exchange/import/CLineQuestion.h"
#include "exchange/text/TextColumns.h"
#include "fields/FieldValue.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

using End = ImportPlan::End;

/// A time on a day of November 2026 with an item.
QByteArray TimeLine(int day, const QByteArray& item, const QByteArray& notes = {}) {
    return "11/" + QByteArray::number(day) + "/2026,09:00 AM,10:00 AM,1,," + item + ",,,,,,,No,No," + notes +
           "\n";
}
QByteArray ExpenseLine(int day, const QByteArray& item) {
    return "11/" + QByteArray::number(day) + "/2026," + item +
           ",,,n/a,n/a,n/a,n/a,,,12.50,No,No,No,No,No,note\n";
}

/// All that lists and dialogs show of a time.
QStringList TextsOf(const CTRecord& record) {
    QStringList texts{record.rate.text, record.amount.text};
    for (const SpanField* span : {&record.spans.duration, &record.spans.breakTime, &record.spans.effective})
        texts << span->clockText << span->decimal.text;
    for (const TextColumn& column : TextColumnsOf(RecordKind::Time)) texts << TextOf(record, *column.field);
    return texts;
}

QString Refused(const ImportPlan& plan) {
    QStringList lines;
    for (const RefusedLine& line : plan.refused)
        lines.append(QStringLiteral("%1:%2").arg(line.number).arg(static_cast<int>(line.code)));
    return lines.join(u' ');
}

}  // namespace

class TestCRecordImport final : public QObject {
    Q_OBJECT

    std::unique_ptr<ImportHome> fixture;

 private Q_SLOTS:
    void init() { fixture = std::make_unique<ImportHome>(); }
    void cleanup() { fixture.reset(); }

    void lines_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<QString>("refused");
        const QByteArray a = TimeLine(1, "A"), b = TimeLine(2, "B"), bad = TimeLine(32, "bad");
        const QByteArray head = "\"Date\",\"Start\"\n", numbers = "\"No.\",\"Date\"\n";
        QTest::newRow("records") << a + b << QStringList{u"A"_s, u"B"_s} << QString();
        QTest::newRow("a head line is no record") << head + a << QStringList{u"A"_s} << QString();
        QTest::newRow("only the first line can be one")
            << a + head + b << QStringList{u"A"_s, u"B"_s} << u"2:6"_s;
        QTest::newRow("a head of other delimiters is a record that fails")
            << "\"Date\";\"Start\",,,,,,,,,,,,,,\n" + a << QStringList{u"A"_s} << u"1:7"_s;
        QTest::newRow("a head of numbers takes the first field away")
            << numbers + "7," + a + "\"8\"," + b << QStringList{u"A"_s, u"B"_s} << QString();
        QTest::newRow("an empty line ends it") << a + "\n" + b << QStringList{u"A"_s} << QString();
        QTest::newRow("CR LF, and none at the end")
            << QByteArray(a + b).replace("\n", "\r\n").chopped(2) << QStringList{u"A"_s, u"B"_s} << QString();
        QTest::newRow("notes of several lines")
            << TimeLine(1, "A", "\"one\ntwo\"") + b << QStringList{u"A"_s, u"B"_s} << QString();
        QTest::newRow("refused lines in between")
            << a + bad + "x\n" + b << QStringList{u"A"_s, u"B"_s} << u"2:7 3:6"_s;
        QTest::newRow("an item of 256 characters isn't stored")
            << a + TimeLine(2, QByteArray(256, 'x')) + b << QStringList{u"A"_s, u"B"_s} << u"2:0"_s;
        QTest::newRow("nothing") << QByteArray() << QStringList() << QString();
        QTest::newRow("a head line alone") << head << QStringList() << QString();
    }
    void lines() {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, items);
        fixture->Open(content);
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import);
        QVERIFY(plan.end == End::Complete);
        QTEST(Refused(plan), "refused");
        QCOMPARE(plan.records, static_cast<int>(items.size()));
        QVERIFY(import.Run(plan, fixture->changes, Hold::Yes, {}));
        QCOMPARE(fixture->Items(), items);
    }

    void expenses() {
        fixture->Open(ExpenseLine(1, "A") + ExpenseLine(2, "B"));
        CRecordImport import = fixture->Importing(ImportHome::Request(RecordKind::Expense));
        const ImportPlan plan = fixture->Look(import);
        QVERIFY(import.Run(plan, fixture->changes, Hold::Yes, {}));
        QCOMPARE(fixture->Items(RecordKind::Expense), (QStringList{u"A"_s, u"B"_s}));
    }

    /// "12.5" is in the list as somebody typed it, and the file has it with all its places.
    void distancesThatTheListHas() {
        fixture->Open(
            "11/1/2026,A,,,12.50,,,0.5,,,6.25,No,No,No,No,No,\n"
            "11/2/2026,B,,,7.00,,,0.5,,,3.50,No,No,No,No,No,\n"
            "11/3/2026,C,,,7.00,,,0.5,,,3.50,No,No,No,No,No,\n");
        QVERIFY(fixture->home.catalogue->AddItem(ListId::kDistance, u"12.5"_s, false));
        ImportRequest request = ImportHome::Request(RecordKind::Expense);
        request.distances = fixture->home.catalogue->Texts(ListId::kDistance);
        CRecordImport import = fixture->Importing(request);
        QVERIFY(import.Run(fixture->Look(import), fixture->changes, Hold::Yes, {}));
        QCOMPARE(fixture->home.catalogue->Texts(ListId::kDistance), (QStringList{u"12.5"_s, u"7.00"_s}));
    }

    /// Nothing is written while a user may be asked.
    void aLookStoresNothing() {
        fixture->Open(TimeLine(1, "A"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import);
        QCOMPARE(plan.records, 1);
        QCOMPARE(plan.samples.size(), std::size_t{1});
        QCOMPARE(fixture->Stored(), std::size_t{0});
    }

    void onlyTheFirstAreSamples() {
        QByteArray content;
        for (int i = 0; i < 25; ++i) content += TimeLine(1 + i, "A");
        fixture->Open(content);
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import);
        QCOMPARE(plan.records, 25);
        QCOMPARE(plan.samples.size(), std::size_t{20});
    }

    /// One text may belong to several lists, whichever of them meets it first.
    void aTextOfTwoLists() {
        fixture->Open("11/1/2026,09:00 AM,10:00 AM,1,,Acme,Acme,,,,,,No,No,\n");
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const std::vector<ListText> texts = fixture->Look(import).listTexts;
        QCOMPARE(texts.size(), std::size_t{2});
        QVERIFY(texts[0].list != texts[1].list);
        QCOMPARE(texts[0].text, u"Acme"_s);
        QCOMPARE(texts[1].text, u"Acme"_s);
    }

    void whatIsHeldIsWhatIsStored_data() {
        QTest::addColumn<QByteArray>("fields");
        QTest::newRow("all of them") << QByteArray("09:00 AM,10:15 AM,1.25,0:15,A,,,,80,80.00,,Yes,No,note");
        QTest::newRow("a rate alone") << QByteArray("09:00 AM,10:15 AM,1.25,,A,,,,80.126,,,Yes,No,");
        QTest::newRow("no times") << QByteArray(",,2.5,,A,,,,,20,,Yes,Yes,");
        QTest::newRow("nothing") << QByteArray(",,,,A,,,,,,,No,No,");
    }
    /// Rounded and composed alike: no text changes when the records are read anew.
    void whatIsHeldIsWhatIsStored() {
        QFETCH(QByteArray, fields);
        fixture->home.document->LoadRecords(RecordKind::Time);
        fixture->Open("11/1/2026," + fields + "\n");
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const Outcome outcome = import.Run(fixture->Look(import), fixture->changes, Hold::Yes, {});
        QCOMPARE(outcome.ids.size(), 1);
        const auto texts = [&] {
            const CTRecord* held = fixture->home.document->FindTime(outcome.ids.front());
            return held ? TextsOf(*held) : QStringList();
        };
        const QStringList before = texts();
        QVERIFY(!before.isEmpty());
        fixture->home.document->LoadRecords(RecordKind::Time);
        QCOMPARE(before, texts());
    }

    void aFullStore_data() {
        QTest::addColumn<int>("count");
        QTest::newRow("met with the last record") << 400;
        QTest::newRow("met on the way") << 2000;
    }
    /// The reason is told once, in its own words.
    void aFullStore() {
        QFETCH(int, count);
        QByteArray content;
        for (int i = 0; i < count; ++i) content += TimeLine(1 + i % 28, "A", QByteArray(700, 'n'));
        fixture->Open(content);
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import);
        QVERIFY(fixture->home.store->Manager().File().Execute("PRAGMA max_page_count=60"));
        fixture->home.prompt.ExpectTold(Text::InsertFailed);
        const Outcome outcome = import.Run(plan, fixture->changes, Hold::No, {});
        QVERIFY(outcome.failure == Outcome::Failure::Record);
        QVERIFY(outcome.commit == CommitEnd::Undone);
        QVERIFY(fixture->home.prompt.told.front().contains(u"full"_s));
        QCOMPARE(fixture->Stored(), std::size_t{0});
    }

    void viewsHearOnce() {
        fixture->home.document->LoadRecords(RecordKind::Time);
        fixture->home.views.seen.clear();
        fixture->Open(TimeLine(1, "A") + TimeLine(2, "B"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const Outcome outcome = import.Run(fixture->Look(import), fixture->changes, Hold::Yes, {});
        QVERIFY(outcome);
        QCOMPARE(outcome.ids.size(), 2);
        QCOMPARE(fixture->home.views.seen.size(), 1);
        QVERIFY(fixture->home.views.seen.front().first == Hint::Added);
        QCOMPARE(fixture->home.views.seen.front().second, outcome.ids);
    }

    void theConsoleHoldsNothing() {
        fixture->Open(TimeLine(1, "A") + TimeLine(2, "B"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        QStringList ids;
        const Outcome outcome = import.Run(fixture->Look(import), fixture->changes, Hold::No,
                                           [&](const QString& id) { ids.append(id); });
        QVERIFY(outcome);
        QCOMPARE(ids.size(), 2);
        QVERIFY(outcome.ids.isEmpty());
        QCOMPARE(fixture->home.document->RecordCount(), std::size_t{0});
        QCOMPARE(fixture->Stored(), std::size_t{2});
    }

    // --- What the user says at a line that is refused

    void abortKeepsWhatCameBefore() {
        fixture->Open(TimeLine(1, "A") + TimeLine(32, "bad") + TimeLine(2, "B"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import, [](const RefusedLine&) { return false; });
        QVERIFY(plan.end == End::Aborted);
        QCOMPARE(plan.lastLine, 2);
        QCOMPARE(Refused(plan), u"2:7"_s);
        QVERIFY(import.Run(plan, fixture->changes, Hold::Yes, {}));
        QCOMPARE(fixture->Items(), QStringList{u"A"_s});
    }

    void questions() {
        CLineQuestion question(fixture->home.prompt);
        const RefusedLine date{2, u"beginning"_s, LineCode::BadDate}, fields{3, {}, LineCode::TooFewFields},
            tooLong{4, {}, LineCode::Parsed};
        CScriptedPrompt& prompt = fixture->home.prompt;
        prompt.Expect(Text::LineRefused, Answer::Retry);
        QVERIFY(question.GoesOn(date));
        QVERIFY(prompt.told.last().contains(u"beginning"_s) &&
                prompt.told.last().contains(LoadText(Text::LineBadDate)));
        // a retry goes on, and asks again
        prompt.Expect(Text::LineRefused, Answer::Ignore);
        QVERIFY(question.GoesOn(date));
        // what was ignored passes in silence
        QVERIFY(question.GoesOn(date));
        prompt.Expect(Text::LineRefused, Answer::Abort);
        QVERIFY(!question.GoesOn(fields));
        // what can't be stored is asked about each time
        prompt.Expect(Text::LineRefused, Answer::Ignore);
        QVERIFY(question.GoesOn(tooLong));
        prompt.Expect(Text::LineRefused, Answer::Ignore);
        QVERIFY(question.GoesOn(tooLong));
        prompt.Finish();
    }

    // --- Pick lists

    void valuesGoIntoTheLists() {
        fixture->Open(
            "11/19/2026,,,2,,Client,Project,10.50,Act,CC,EUR,21,Yes,No,n\n"
            "11/20/2026,,,2,,Client,Other,10.5,,,,,No,No,n\n" +
            TimeLine(32, "refused"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import);
        const Outcome outcome = import.Run(plan, fixture->changes, Hold::Yes, {});
        QVERIFY(outcome && outcome.hasNewItems);
        const CPulldownCatalogue& lists = *fixture->home.catalogue;
        QCOMPARE(lists.Texts(ListId::kClient), QStringList{u"Client"_s});
        QCOMPARE(lists.Texts(ListId::kProject), (QStringList{u"Project"_s, u"Other"_s}));
        // a list of numbers has each number once, in its one spelling; the second record has no money
        QCOMPARE(lists.Texts(ListId::kTimeRate), QStringList{u"10.5"_s});
        QCOMPARE(lists.Texts(ListId::kAmount), QStringList{u"21"_s});
        QCOMPARE(lists.Texts(ListId::kItem5), QStringList{u"EUR"_s});
    }

    void orStayOutOfThem() {
        fixture->Open(TimeLine(1, "Client"));
        ImportRequest request = ImportHome::Request();
        request.addListItems = false;
        CRecordImport import = fixture->Importing(request);
        const Outcome outcome = import.Run(fixture->Look(import), fixture->changes, Hold::Yes, {});
        QVERIFY(outcome && !outcome.hasNewItems);
        QVERIFY(fixture->home.catalogue->Texts(ListId::kClient).isEmpty());
    }

    /// The line whose record can't be stored gives its other values all the same.
    void listsWhateverBecomesOfTheRecord() {
        fixture->Open("11/19/2026,,,,," + QByteArray(256, 'x') + ",Project,,,,,,No,No,n\n");
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import);
        QCOMPARE(plan.records, 0);
        QVERIFY(import.Run(plan, fixture->changes, Hold::Yes, {}));
        QCOMPARE(fixture->home.catalogue->Texts(ListId::kProject), QStringList{u"Project"_s});
        QVERIFY(fixture->home.catalogue->Texts(ListId::kClient).isEmpty());
    }

    // --- Records that are there already

    void duplicates() {
        const QByteArray content = TimeLine(1, "A") + TimeLine(2, "B");
        fixture->Open(content);
        CRecordImport first = fixture->Importing(ImportHome::Request());
        QCOMPARE(fixture->Look(first).duplicates, 0);
        QVERIFY(first.Run(fixture->Look(first), fixture->changes, Hold::Yes, {}));
        fixture->Write(content + TimeLine(3, "C"));
        CTextFile file;
        QCOMPARE(file.Open(fixture->Path()), 0);
        // They are added all the same,
        fixture->ReadStored(ImportHome::Request());
        CRecordImport again(file, ImportHome::Request(), fixture->stored);
        QCOMPARE(fixture->Look(again).duplicates, 2);
        QCOMPARE(fixture->Look(again).records, 3);
        // unless they are to be left out.
        ImportRequest request = ImportHome::Request();
        request.skipDuplicates = true;
        CRecordImport fresh(file, request, fixture->stored);
        const ImportPlan plan = fixture->Look(fresh);
        QCOMPARE(plan.duplicates, 2);
        QCOMPARE(plan.records, 1);
        QVERIFY(fresh.Run(plan, fixture->changes, Hold::Yes, {}));
        QCOMPARE(fixture->Items(), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    }

    void whatAFileDoesNotCarryDoesNotCount() {
        CTRecord stored;
        stored.date.Set(11, 1, 2026);
        stored.SetStart(9, 0, false);
        stored.SetEnd(10, 0, false);
        stored.item1 = u"A"_s;
        stored.isExported = true;
        QVERIFY(fixture->changes.Add(stored, Identity::New));
        fixture->Open(TimeLine(1, "A") + TimeLine(1, "a") + TimeLine(1, "A", "notes"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        QCOMPARE(fixture->Look(import).duplicates, 1);
    }

    /// A day with two equal entries goes into another store with both of them.
    void equalLinesOfAFileAreNoDuplicates() {
        fixture->Open(TimeLine(1, "A") + TimeLine(1, "A"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        QCOMPARE(fixture->Look(import).duplicates, 0);
        QCOMPARE(fixture->Look(import).records, 2);
    }

    // --- Files and stores that fail

    void aFileThatCantBeDecoded() {
        fixture->Open(TimeLine(1, "A") + TimeLine(2, "\xFC"));
        ImportRequest request = ImportHome::Request();
        request.encoding = "utf-8";
        CRecordImport import = fixture->Importing(request);
        const ImportPlan plan = fixture->Look(import);
        QVERIFY(plan.end == End::Undecodable);
        QCOMPARE(plan.lastLine, 2);
    }

    void aFileThatChangesMeanwhile() {
        fixture->Open(TimeLine(1, "A") + TimeLine(2, "B"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import);
        fixture->Write(TimeLine(1, "X"));
        const Outcome outcome = import.Run(plan, fixture->changes, Hold::Yes, {});
        QVERIFY(!outcome);
        QVERIFY(import.FileChanged());
        QVERIFY(outcome.commit == CommitEnd::Undone);
        QCOMPARE(fixture->Stored(), std::size_t{0});
    }

    void aStoreThatFailsKeepsNothing() {
        fixture->Open(TimeLine(1, "A") + TimeLine(2, "B"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import);
        QVERIFY(fixture->home.manager.File().Execute(
            "CREATE TRIGGER refuse BEFORE INSERT ON time_velmarch WHEN NEW.item1='B' BEGIN SELECT "
            "RAISE(ABORT, 'refused'); END"));
        fixture->home.prompt.ExpectTold(Text::InsertFailed);
        const Outcome outcome = import.Run(plan, fixture->changes, Hold::Yes, {});
        QVERIFY(outcome.end == Outcome::End::Failed);
        QVERIFY(fixture->home.catalogue->Texts(ListId::kClient).isEmpty());
        QCOMPARE(fixture->Stored(), std::size_t{0});
    }

    /// Of records that are added; the others are refused or left out whatever their values are.
    void valuesThatAreNotReadAsTheyAreWritten() {
        QByteArray odd = TimeLine(2, "B");
        odd.replace(",1,,", ",\"1,5\",,");
        fixture->Open(TimeLine(1, "A") + odd + "bad\n" + odd);
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan = fixture->Look(import);
        QCOMPARE(plan.misreadCount, 2);
        QCOMPARE(plan.misread.size(), std::size_t{2});
        QCOMPARE(plan.misread[1].number, 4);
        QCOMPARE(plan.misread[1].value.text, u"1,5"_s);
        QCOMPARE(plan.misread[1].value.read, u"1"_s);
        QVERIFY(import.Run(plan, fixture->changes, Hold::Yes, {}));
        ImportRequest skipping = ImportHome::Request();
        skipping.skipDuplicates = true;
        CRecordImport again = fixture->Importing(skipping);
        QCOMPARE(fixture->Look(again).misreadCount, 0);
    }

    void aUserWhoCancelsTheLook() {
        fixture->Open(TimeLine(1, "A") + TimeLine(2, "B"));
        CRecordImport import = fixture->Importing(ImportHome::Request());
        const ImportPlan plan =
            import.Look({.goesOn = [](const RefusedLine&) { return true; }, .advance = [] { return false; }});
        QVERIFY(plan.end == End::Cancelled);
    }
};

TEST_CLASS(TestCRecordImport);
#include "TestCRecordImport.moc"

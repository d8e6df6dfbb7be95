#include "viewmodel/work/WorkLine.h"

#include "WorkRecords.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Two works were done, and the pick lists know more clients.
struct Fixture : WorkRecords {
    CRecentWork recent{*home.document};

    Fixture() {
        Load();
        Add(17, {.client = u"Acme"_s, .project = u"Alpha"_s, .activity = u"Design"_s});
        Add(18, {.client = u"Hollis Bakery"_s, .project = u"Web Site"_s, .notes = u"call back"_s});
        for (const auto& text : {u"Smith, Jones & Co"_s, u"Design"_s, u"Zoë"_s, u"acme"_s, u"Alpha"_s}) {
            const auto added = home.catalogue->AddItem(16, text, false);
            if (!added) qFatal("no item");
        }
    }
    [[nodiscard]] CKnownWork Known() { return {*home.catalogue, recent}; }
    [[nodiscard]] QStringList Proposals(const QString& line) {
        QStringList lines;
        for (const WorkProposal& proposal : ProposeWork(line, Known()))
            lines << proposal.line + (proposal.isWhole ? u"!"_s : QString());
        return lines;
    }
};

/// "client|project|activity|cost centre|notes".
QString InWords(const Work& work) {
    return QStringList(work.items.begin(), work.items.end()).join(u'|') + u'|' + work.notes;
}

}  // namespace

class TestWorkLine final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void read_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("work");
        QTest::newRow("words that nobody knows are the notes")
            << u"write a letter"_s << u"||||write a letter"_s;
        QTest::newRow("a known client") << u"Hollis Bakery"_s << u"Hollis Bakery||||"_s;
        QTest::newRow("upper and lower case don't count") << u"HOLLIS bakery"_s << u"Hollis Bakery||||"_s;
        QTest::newRow("where they tell two apart they count") << u"acme"_s << u"acme||||"_s;
        QTest::newRow("of two that differ in case only the one used last") << u"ACME"_s << u"Acme||||"_s;
        QTest::newRow("beyond English letters") << u"ZOË"_s << u"Zoë||||"_s;
        QTest::newRow("a part of a name is no name") << u"Hollis"_s << u"||||Hollis"_s;
        QTest::newRow("client, project, activity") << u"Acme · Alpha · Design"_s << u"Acme|Alpha|Design||"_s;
        QTest::newRow("with other separators") << u"acme/Alpha; design|x"_s << u"acme|Alpha|Design||x"_s;
        QTest::newRow("without blanks") << u"Acme,Web Site"_s << u"Acme|Web Site|||"_s;
        QTest::newRow("in another order") << u"Web Site, Acme"_s << u"Acme|Web Site|||"_s;
        QTest::newRow("the client's place is taken first") << u"Design"_s << u"Design||||"_s;
        QTest::newRow("and then the next one's") << u"Acme, Design"_s << u"Acme||Design||"_s;
        QTest::newRow("a project alone") << u"Web Site"_s << u"|Web Site|||"_s;
        QTest::newRow("a name with a separator in it")
            << u"Smith, Jones & Co, letter"_s << u"Smith, Jones & Co||||letter"_s;
        QTest::newRow("notes stay as typed") << u"Acme · a, b/c; d"_s << u"Acme||||a, b/c; d"_s;
        QTest::newRow("notes around an item") << u"first, Acme, then"_s << u"Acme||||first · then"_s;
        QTest::newRow("separators alone say nothing") << u" · , Acme ; "_s << u"Acme||||"_s;
        QTest::newRow("nothing") << u"  "_s << u"||||"_s;
        QTest::newRow("a second client is a note") << u"Acme, Hollis Bakery"_s << u"Acme||||Hollis Bakery"_s;
        QTest::newRow("quotes and percent signs")
            << u"100 % \"done\" 'yes'"_s << u"||||100 % \"done\" 'yes'"_s;
        QTest::newRow("more parts than are looked at")
            << QString(u'x') + u",y"_s.repeated(40) << u"||||x"_s + u",y"_s.repeated(40);
    }
    void read() {
        Fixture fixture;
        QFETCH(QString, line);
        QTEST(InWords(ReadWorkLine(line, fixture.Known())), "work");
    }

    /// Even where the parts alone could be something else.
    void aWorkInItsWords() {
        Fixture fixture;
        fixture.Add(19, {.project = u"Acme"_s, .activity = u"a, b"_s});
        QCOMPARE(InWords(ReadWorkLine(u"Acme · a, b"_s, fixture.Known())), u"|Acme|a, b||"_s);
    }

    void proposals_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("proposals");
        QTest::newRow("nothing for nothing") << u" "_s << QStringList();
        QTest::newRow("words anywhere, in any order")
            << u"site hol"_s << QStringList{u"Hollis Bakery · Web Site!"_s};
        QTest::newRow("works, then clients, projects, activities, notes")
            << u"a"_s
            << QStringList{u"Hollis Bakery · Web Site!"_s,
                           u"Acme · Alpha · Design!"_s,
                           u"Hollis Bakery"_s,
                           u"Acme"_s,
                           u"acme"_s,
                           u"Alpha"_s,
                           u"call back"_s};
        QTest::newRow("the last part is completed")
            << u"Hollis Bakery, alp"_s << QStringList{u"Hollis Bakery, Alpha"_s};
        QTest::newRow("what is typed already isn't proposed") << u"Zoë"_s << QStringList();
        QTest::newRow("what nobody knows") << u"xyzzy"_s << QStringList();
    }
    void proposals() {
        Fixture fixture;
        QFETCH(QString, line);
        QTEST(fixture.Proposals(line), "proposals");
    }

    void noMoreThanFitBelowTheLine() {
        Fixture fixture;
        for (int i = 0; i < 30; ++i)
            fixture.Add(18, {.client = u"same %1"_s.arg(i), .project = u"same %1"_s.arg(i)});
        const QStringList proposals = fixture.Proposals(u"same"_s);
        QCOMPARE(proposals.size(), 12);
        QCOMPARE(proposals.filter(QRegularExpression(u"!$"_s)).size(), 6);
    }
};

TEST_CLASS(TestWorkLine);
#include "TestWorkLine.moc"

#include "cli/home/ConsoleHome.h"
#include "platform/instance/InstanceProtocol.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// A text that begins with U+FEFF, as one does that was copied from the first line of a file. It is a
/// character like any other, on every way into the home and out of it.
class TestMarkInFront : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }
    void OfARecord_data();
    void OfARecord();
    void OfAnItem();
    void OfALabel();
    void OfAStoredDefault();
    void OfAMessage();

 private:
    std::unique_ptr<ConsoleHome> m_home;
};

namespace {

const QString kText = u"\uFEFFAcme"_s;

}  // namespace

void TestMarkInFront::OfARecord_data() {
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("text");
    QTest::newRow("an item") << u"item1"_s << kText;
    QTest::newRow("one that is too long to be shared") << u"item2"_s << kText + QString(100, u'x');
    QTest::newRow("notes") << u"notes"_s << kText;
    QTest::newRow("two marks and nothing else") << u"item3"_s << u"\uFEFF\uFEFF"_s;
}

void TestMarkInFront::OfARecord() {
    QFETCH(QString, option);
    QFETCH(QString, text);
    const QString id = m_home->Add({u"--"_s + option, text});
    QCOMPARE(m_home->Show(id)[option].toString(), text);
    const QJsonArray listed = m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"records"].toArray();
    QCOMPARE(listed[0][option].toString(), text);
    if (option == u"notes") return;
    for (const QStringList& how : {QStringList{}, {u"--case"_s}, {u"--whole"_s, u"--case"_s}}) {
        const QStringList filter = QStringList{u"time"_s, u"list"_s, u"--"_s + option, text} + how;
        QCOMPARE(m_home->RunJson(filter).Object()[u"count"].toInt(), 1);
    }
}

void TestMarkInFront::OfAnItem() {
    QCOMPARE(m_home->Run({u"items"_s, u"add"_s, u"16"_s, kText}).exit, 0);
    QCOMPARE(m_home->RunJson({u"items"_s, u"list"_s, u"16"_s}).Array(), QJsonArray{kText});
    QCOMPARE(m_home->Run({u"items"_s, u"rename"_s, u"16"_s, kText, u"Beta"_s}).exit, 0);
    QCOMPARE(m_home->RunJson({u"items"_s, u"list"_s, u"16"_s}).Array(), QJsonArray{u"Beta"_s});
}

void TestMarkInFront::OfALabel() {
    QCOMPARE(m_home->Run({u"labels"_s, u"set"_s, u"109"_s, kText}).exit, 0);
    QCOMPARE(m_home->RunJson({u"labels"_s, u"list"_s}).Array()[10][u"label"].toString(), kText);
    const Reply people = m_home->Run({u"labels"_s, u"list"_s});
    QVERIFY2(people.out.contains("<U+FEFF>Acme"), people.out.constData());
}

void TestMarkInFront::OfAStoredDefault() {
    QCOMPARE(m_home->Run({u"defaults"_s, u"save"_s, kText, u"--item1"_s, kText}).exit, 0);
    QVERIFY(m_home->RunJson({u"defaults"_s, u"list"_s}).Array().contains(kText));
    QCOMPARE(m_home->RunJson({u"defaults"_s, u"show"_s, kText}).Object()[u"item1"].toString(), kText);
}

/// What goes to the window.
void TestMarkInFront::OfAMessage() {
    const QByteArray line = InstanceProtocol::ToLine({{u"name"_s, kText}});
    const auto read = InstanceProtocol::FromLine(line.trimmed());
    QVERIFY(read);
    QCOMPARE(read->value(u"name"_s).toString(), kText);
}

TEST_CLASS(TestMarkInFront);
#include "TestMarkInFront.moc"

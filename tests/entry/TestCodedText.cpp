#include "entry/CodedText.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCodedText : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Split_data();
    void Split();
    void Join_data();
    void Join();
    void Payments();
};

void TestCodedText::Split_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("name");
    QTest::newRow("code and name") << u"[4711] Acme"_s << u"4711"_s << u"Acme"_s;
    QTest::newRow("a code alone") << u"[4711] "_s << u"4711"_s << QString();
    QTest::newRow("a name alone") << u"[] Acme"_s << QString() << u"Acme"_s;
    QTest::newRow("no prefix") << u"Acme"_s << QString() << QString();
    QTest::newRow("the prefix inside") << u"Acme [4711] x"_s << QString() << QString();
    QTest::newRow("no separator") << u"[4711]Acme"_s << QString() << QString();
    QTest::newRow("a separator that lost its blank") << u"[4711]"_s << QString() << QString();
    QTest::newRow("an empty text") << QString() << QString() << QString();
    QTest::newRow("the first separator counts") << u"[a] b] c"_s << u"a"_s << u"b] c"_s;
    QTest::newRow("percent signs, umlauts, emoji")
        << u"[5%] 100% Müller \U0001F600"_s << u"5%"_s << u"100% Müller \U0001F600"_s;
}

void TestCodedText::Split() {
    QFETCH(QString, text);
    const CodedText parts = SplitCodedText(text);
    QTEST(parts.code, "code");
    QTEST(parts.name, "name");
}

void TestCodedText::Join_data() {
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("code and name") << u"4711"_s << u"Acme"_s << u"[4711] Acme"_s;
    QTest::newRow("both empty: an empty text") << QString() << QString() << QString();
    QTest::newRow("a code alone") << u"4711"_s << QString() << u"[4711] "_s;
    QTest::newRow("a name alone") << QString() << u"Acme"_s << u"[] Acme"_s;
    QTest::newRow("percent signs, umlauts, emoji")
        << u"5%s"_s << u"100% Müller \U0001F600"_s << u"[5%s] 100% Müller \U0001F600"_s;
}

void TestCodedText::Join() {
    QFETCH(QString, code);
    QFETCH(QString, name);
    QFETCH(QString, text);
    QCOMPARE(JoinCodedText({code, name}), text);
    const CodedText again = SplitCodedText(text);
    QCOMPARE(again.code, code);
    QCOMPARE(again.name, name);
}

void TestCodedText::Payments() {
    QCOMPARE(PaymentTexts(),
             QStringList({u"CA: Cash"_s, u"CC: Credit card"_s, u"DC: Debit card"_s, u"CO: Company card"_s,
                          u"BT: Bank transfer"_s, u"DD: Direct debit"_s, u"CK: Cheque"_s,
                          u"TC: Traveller's cheque"_s, u"MO: Money order"_s, u"PP: Prepaid card"_s,
                          u"GC: Gift card"_s, u"VO: Voucher"_s, u"MP: Mobile payment"_s,
                          u"OW: Online wallet"_s, u"PC: Petty cash"_s, u"AD: Advance"_s, u"IN: Invoice"_s,
                          u"CR: Credit note"_s, u"OT: Other"_s}));
}

TEST_CLASS(TestCodedText);
#include "TestCodedText.moc"

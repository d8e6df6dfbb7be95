#include "records/TextAddressCache.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestTextAddressCache : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void ATextIsMadeOnce();
    void ATextThatLiesElsewhereIsMadeAnew();
    void APartAtTheSamePlaceIsAnotherText();
    void ManyTextsKeepTheirValues();
};

void TestTextAddressCache::ATextIsMadeOnce() {
    TextAddressCache<int, 16> cache;
    const QString text = QString::fromLatin1("EUR");
    const QString shared = text;
    int made = 0;
    const auto make = [&made] { return ++made; };
    QCOMPARE(cache.Get(text, make), 1);
    QCOMPARE(cache.Get(shared, make), 1);
    QCOMPARE(made, 1);
}

void TestTextAddressCache::ATextThatLiesElsewhereIsMadeAnew() {
    TextAddressCache<int, 16> cache;
    int made = 0;
    const auto make = [&made] { return ++made; };
    QString text = QString::fromLatin1("EUR");
    QCOMPARE(cache.Get(text, make), 1);
    text = QString::fromLatin1("USD");  // can't come to lie where the cache still has the other
    QCOMPARE(cache.Get(text, make), 2);
}

void TestTextAddressCache::APartAtTheSamePlaceIsAnotherText() {
    TextAddressCache<qsizetype, 16> cache;
    const QString text = u"EURO"_s;
    const QString part = QString::fromRawData(text.constData(), 3);
    QCOMPARE(cache.Get(text, [&] { return text.size(); }), 4);
    QCOMPARE(cache.Get(part, [&] { return part.size(); }), 3);
}

void TestTextAddressCache::ManyTextsKeepTheirValues() {
    TextAddressCache<int, 16> cache;
    QStringList texts;
    for (int i = 0; i < 200; ++i) texts.append(QString::number(i));
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 200; ++i) QCOMPARE(cache.Get(texts[i], [i] { return i; }), i);
}

TEST_CLASS(TestTextAddressCache);
#include "TestTextAddressCache.moc"

#include "platform/host/PaperSize.h"

#include "support/TestProgram.h"

#include <QTest>
#include <map>

class TestPaperSize final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() {
        for (const char* name : {"LC_ALL", "LC_PAPER", "LANG"}) {
            m_before[name] = qgetenv(name);
            qunsetenv(name);
        }
    }
    void cleanup() {
        for (const auto& [name, value] : m_before) qputenv(name.constData(), value);
    }

    void OfRegion_data() {
        QTest::addColumn<QByteArray>("all");
        QTest::addColumn<QByteArray>("paper");
        QTest::addColumn<QByteArray>("lang");
        QTest::addColumn<Paper>("expected");
        const auto row = [](const char* name, const char* all, const char* paper, const char* lang,
                            Paper expected) {
            QTest::newRow(name) << QByteArray(all) << QByteArray(paper) << QByteArray(lang) << expected;
        };
        row("nothing is known", "", "", "", Paper::A4);
        row("the United States", "", "", "en_US.UTF-8", Paper::Letter);
        row("Canada in French", "", "", "fr_CA.UTF-8", Paper::Letter);
        row("Mexico", "", "", "es_MX.UTF-8", Paper::Letter);
        row("the Philippines", "", "", "fil_PH", Paper::Letter);
        row("Britain", "", "", "en_GB.UTF-8", Paper::A4);
        row("Germany", "", "", "de_DE.UTF-8@euro", Paper::A4);
        row("Brazil", "", "", "pt_BR.UTF-8", Paper::A4);
        row("a language without a region", "", "", "en", Paper::A4);
        row("paper goes before the language", "", "de_DE.UTF-8", "en_US.UTF-8", Paper::A4);
        row("paper of the United States, all else German", "", "en_US.UTF-8", "de_DE.UTF-8", Paper::Letter);
        row("everything goes before the paper", "en_US.UTF-8", "de_DE.UTF-8", "de_DE.UTF-8", Paper::Letter);
        row("the plain locale hides the paper", "C", "en_US.UTF-8", "en_US.UTF-8", Paper::A4);
        row("a region that nobody knows", "", "", "xx_YY.UTF-8", Paper::A4);
    }
    void OfRegion() {
        QFETCH(QByteArray, all);
        QFETCH(QByteArray, paper);
        QFETCH(QByteArray, lang);
        QFETCH(Paper, expected);
        qputenv("LC_ALL", all);
        qputenv("LC_PAPER", paper);
        qputenv("LANG", lang);
        QCOMPARE(PaperOfRegion(), expected);
    }

 private:
    std::map<QByteArray, QByteArray> m_before;
};

TEST_CLASS(TestPaperSize);
#include "TestPaperSize.moc"

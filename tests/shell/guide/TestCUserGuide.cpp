#include "shell/guide/CUserGuide.h"

#include "lang/LoadText.h"
#include "shell/guide/CGuideText.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The user guide in the window.
class TestCUserGuide final : public QObject {
    Q_OBJECT

    TestHome m_home;

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    /// Text and pictures come with the program.
    void EveryPictureIsThere() {
        QFile guide(u":/guide/user-guide.md"_s);
        QVERIFY(guide.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(guide.readAll());
        static const QRegularExpression kPicture(u"!\\[[^]]*\\]\\(([^)]+)\\)"_s);
        int pictures = 0;
        for (auto found = kPicture.globalMatch(text); found.hasNext(); ++pictures) {
            const QString name = found.next().captured(1);
            QVERIFY2(QFile::exists(u":/guide/"_s + name), qPrintable(name));
        }
        QVERIFY(pictures > 10);
    }

    void TheContentsLeadToTheChapters() {
        CUserGuide guide(*m_home.profile);
        guide.show();
        QVERIFY(QTest::qWaitForWindowExposed(&guide));
        auto* contents = guide.findChild<QListWidget*>(u"guideContents"_s);
        auto* text = guide.findChild<CGuideText*>(u"guideText"_s);
        const auto chapters = contents->findItems(u"Record expenses"_s, Qt::MatchExactly);
        QCOMPARE(chapters.size(), 1);
        QCOMPARE(text->verticalScrollBar()->value(), 0);
        contents->setCurrentItem(chapters.front());
        QVERIFY(text->verticalScrollBar()->value() > 0);
        QCOMPARE(text->textCursor().block().text(), u"Record expenses"_s);
    }

    void WordsAreFoundOneAfterTheOther() {
        CUserGuide guide(*m_home.profile);
        guide.show();
        QVERIFY(QTest::qWaitForWindowActive(&guide));
        auto* words = guide.findChild<QLineEdit*>(u"guideWords"_s);
        auto* text = guide.findChild<CGuideText*>(u"guideText"_s);
        auto* notFound = guide.findChild<QLabel*>(u"guideNotFound"_s);
        QTest::keyClick(text, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(words->hasFocus());
        QTest::keyClicks(words, u"backup"_s);
        QTest::keyClick(words, Qt::Key_Return);
        const int first = text->textCursor().position();
        QCOMPARE(text->textCursor().selectedText().toLower(), u"backup"_s);
        QTest::keyClick(words, Qt::Key_Return);
        QVERIFY(text->textCursor().position() > first);
        QCOMPARE(notFound->text(), QString());
        words->selectAll();
        QTest::keyClicks(words, u"xyzzy"_s);
        QTest::keyClick(words, Qt::Key_Return);
        QCOMPARE(notFound->text(), LoadText(Text::UserGuideNotFound));
        QVERIFY(guide.isVisible());
    }

    /// It would keep the program from ending.
    void ItGoesWithItsWindow() {
        QWidget window;
        window.show();
        CUserGuide guide(*m_home.profile, &window);
        guide.show();
        window.hide();
        QVERIFY(!guide.isVisible());
    }
};

TEST_CLASS(TestCUserGuide);
#include "TestCUserGuide.moc"

#include "shell/controls/CBoxPrompt.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

using namespace Qt::Literals::StringLiterals;

/// What a box offers and what its buttons and keys answer.
class TestCBoxPrompt : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Buttons_data();
    void Buttons();
    void EscapeIsHarmless_data();
    void EscapeIsHarmless();
    void Icons_data();
    void Icons();
    void Look();
    void VerbOnTheButton_data();
    void VerbOnTheButton();
    void ReturnMayAnswerSomethingElse();
    void ButtonsHaveLettersOfTheirOwn();
    void TellShowsOneButton();
    void ANameTakesTheExtensionOfItsKind_data();
    void ANameTakesTheExtensionOfItsKind();
    void NoFileIsChosen();
};

namespace {

MessageBox Question(Buttons buttons, Answer harmless) {
    MessageBox box;
    box.title = u"Title"_s;
    box.text = u"Text"_s;
    box.buttons = buttons;
    box.defaultAnswer = harmless;
    return box;
}

/// Does something with the box as soon as it is there.
void WhenShown(const std::function<void(QMessageBox&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return QTest::qFail("no box is shown", __FILE__, __LINE__);
        act(*box);
    });
}

}  // namespace

void TestCBoxPrompt::Buttons_data() {
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("count");
    const auto row = [](const char* name, ::Buttons buttons, QMessageBox::StandardButton button,
                        Answer answer, int count) {
        QTest::newRow(name) << static_cast<int>(buttons) << static_cast<int>(button)
                            << static_cast<int>(answer) << count;
    };
    row("OK of OK and Cancel", ::Buttons::OkCancel, QMessageBox::Ok, Answer::Ok, 2);
    row("Cancel of OK and Cancel", ::Buttons::OkCancel, QMessageBox::Cancel, Answer::Cancel, 2);
    row("yes of yes and no", ::Buttons::YesNo, QMessageBox::Yes, Answer::Yes, 2);
    row("no of yes and no", ::Buttons::YesNo, QMessageBox::No, Answer::No, 2);
    row("cancel of three", ::Buttons::YesNoCancel, QMessageBox::Cancel, Answer::Cancel, 3);
    row("retry of three", ::Buttons::AbortRetryIgnore, QMessageBox::Retry, Answer::Retry, 3);
}

void TestCBoxPrompt::Buttons() {
    QFETCH(int, buttons);
    QFETCH(int, button);
    QFETCH(int, answer);
    QFETCH(int, count);
    CBoxPrompt prompt;
    qsizetype shown = 0;
    WhenShown([&](QMessageBox& box) {
        shown = box.buttons().size();
        QTest::mouseClick(box.button(static_cast<QMessageBox::StandardButton>(button)), Qt::LeftButton);
    });
    const auto harmless = buttons == static_cast<int>(::Buttons::OkCancel)           ? Answer::Ok
                          : buttons == static_cast<int>(::Buttons::AbortRetryIgnore) ? Answer::Abort
                                                                                     : Answer::No;
    QCOMPARE(static_cast<int>(prompt.Ask(Question(static_cast<::Buttons>(buttons), harmless))), answer);
    QCOMPARE(shown, qsizetype(count));
}

void TestCBoxPrompt::EscapeIsHarmless_data() {
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("harmless");
    QTest::newRow("yes and no") << static_cast<int>(::Buttons::YesNo) << static_cast<int>(Answer::No);
    QTest::newRow("three buttons") << static_cast<int>(::Buttons::YesNoCancel)
                                   << static_cast<int>(Answer::No);
    QTest::newRow("OK and Cancel, OK goes on")
        << static_cast<int>(::Buttons::OkCancel) << static_cast<int>(Answer::Ok);
    QTest::newRow("OK and Cancel, OK does it")
        << static_cast<int>(::Buttons::OkCancel) << static_cast<int>(Answer::Cancel);
}

void TestCBoxPrompt::EscapeIsHarmless() {
    QFETCH(int, buttons);
    QFETCH(int, harmless);
    CBoxPrompt prompt;
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        WhenShown([key](QMessageBox& box) { QTest::keyClick(&box, key); });
        const MessageBox box = Question(static_cast<::Buttons>(buttons), static_cast<Answer>(harmless));
        QCOMPARE(static_cast<int>(prompt.Ask(box)), harmless);
    }
}

void TestCBoxPrompt::Icons_data() {
    QTest::addColumn<BoxIcon>("icon");
    QTest::addColumn<QMessageBox::Icon>("shown");
    QTest::newRow("none") << BoxIcon::None << QMessageBox::NoIcon;
    QTest::newRow("information") << BoxIcon::Information << QMessageBox::Information;
    QTest::newRow("warning") << BoxIcon::Warning << QMessageBox::Warning;
    QTest::newRow("stop") << BoxIcon::Stop << QMessageBox::Critical;
    QTest::newRow("question") << BoxIcon::Question << QMessageBox::Question;
}

void TestCBoxPrompt::Icons() {
    QFETCH(BoxIcon, icon);
    QFETCH(QMessageBox::Icon, shown);
    CBoxPrompt prompt;
    MessageBox box = Question(::Buttons::YesNo, Answer::No);
    box.icon = icon;
    QMessageBox::Icon seen = QMessageBox::NoIcon;
    WhenShown([&seen](QMessageBox& on) {
        seen = on.icon();
        on.reject();
    });
    QCOMPARE(prompt.Ask(box), Answer::No);
    QCOMPARE(seen, shown);
}

/// Marks of a markup language in a text are shown, not carried out.
void TestCBoxPrompt::Look() {
    CBoxPrompt prompt;
    MessageBox box = Question(::Buttons::YesNoCancel, Answer::No);
    box.text = u"<b>50 %</b> & more"_s;
    WhenShown([](QMessageBox& on) {
        QCOMPARE(on.windowTitle(), u"Title"_s);
        QCOMPARE(on.text(), u"<b>50 %</b> & more"_s);
        QCOMPARE(on.textFormat(), Qt::PlainText);
        QCOMPARE(on.defaultButton(), on.button(QMessageBox::No));
        QCOMPARE(on.escapeButton(), on.button(QMessageBox::No));
        on.button(QMessageBox::Cancel)->click();
    });
    QCOMPARE(prompt.Ask(box), Answer::Cancel);
}

void TestCBoxPrompt::VerbOnTheButton_data() {
    QTest::addColumn<QString>("verb");
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("yes");
    QTest::addColumn<QString>("no");
    QTest::newRow("a verb, and the other button leaves")
        << u"Delete"_s << u""_s << u"Delete"_s << u"Cancel"_s;
    QTest::newRow("two verbs") << u"Save mine"_s << u"Keep stored"_s << u"Save mine"_s << u"Keep stored"_s;
    QTest::newRow("none") << u""_s << u""_s << u"Yes"_s << u"No"_s;
}

void TestCBoxPrompt::VerbOnTheButton() {
    QFETCH(QString, verb);
    QFETCH(QString, other);
    CBoxPrompt prompt;
    MessageBox box = Question(::Buttons::YesNo, Answer::No);
    box.actionLabel = verb;
    box.otherLabel = other;
    QStringList seen;
    WhenShown([&seen](QMessageBox& on) {
        for (const auto button : {QMessageBox::Yes, QMessageBox::No})
            seen.append(on.button(button)->text().remove(u'&'));
        on.button(QMessageBox::Yes)->click();
    });
    QCOMPARE(prompt.Ask(box), Answer::Yes);
    QTEST(seen.value(0), "yes");
    QTEST(seen.value(1), "no");
}

void TestCBoxPrompt::ReturnMayAnswerSomethingElse() {
    CBoxPrompt prompt;
    MessageBox box = Question(::Buttons::YesNo, Answer::No);
    box.onReturn = Answer::Yes;
    WhenShown([](QMessageBox& shown) { QTest::keyClick(&shown, Qt::Key_Return); });
    QCOMPARE(prompt.Ask(box), Answer::Yes);
    WhenShown([](QMessageBox& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
    QCOMPARE(prompt.Ask(box), Answer::No);
}

void TestCBoxPrompt::ButtonsHaveLettersOfTheirOwn() {
    CBoxPrompt prompt;
    MessageBox box = Question(::Buttons::YesNoCancel, Answer::Cancel);
    box.actionLabel = u"Save"_s;
    box.otherLabel = u"Skip"_s;
    box.cancelLabel = u"Stay & go on"_s;
    QStringList words, letters;
    WhenShown([&](QMessageBox& shown) {
        for (const auto which : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
            const QString text = shown.button(which)->text();
            words << text;
            letters << QKeySequence::mnemonic(text).toString();
        }
        shown.reject();
    });
    QCOMPARE(prompt.Ask(box), Answer::Cancel);
    QCOMPARE(words, QStringList({u"&Save"_s, u"S&kip"_s, u"Stay && &go on"_s}));
    QCOMPARE(QSet<QString>(letters.begin(), letters.end()).size(), 3);
}

void TestCBoxPrompt::TellShowsOneButton() {
    CBoxPrompt prompt;
    qsizetype buttons = 0;
    WhenShown([&buttons](QMessageBox& on) {
        buttons = on.buttons().size();
        QVERIFY(on.button(QMessageBox::Ok));
        on.button(QMessageBox::Ok)->click();
    });
    prompt.Tell({.title = u"Title"_s, .text = u"Text"_s, .actionLabel = {}});
    QCOMPARE(buttons, qsizetype(1));
}

void TestCBoxPrompt::ANameTakesTheExtensionOfItsKind_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("without one") << u"bill"_s << u"bill.html"_s;
    QTest::newRow("with its own") << u"bill.htm"_s << u"bill.htm"_s;
    QTest::newRow("with that one") << u"bill.html"_s << u"bill.html"_s;
}

void TestCBoxPrompt::ANameTakesTheExtensionOfItsKind() {
    QFETCH(QString, typed);
    QFETCH(QString, chosen);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QTemporaryDir folder;
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog) return QTest::qFail("no file is asked for", __FILE__, __LINE__);
        dialog->setDirectory(folder.path());
        dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(typed);
        static_cast<QDialog*>(dialog)->accept();
    });
    CBoxPrompt prompt;
    const auto path = prompt.ChooseFile({.purpose = FileChoice::Purpose::Save,
                                         .title = u"Save"_s,
                                         .suggestedName = u"report.html"_s,
                                         .filter = u"Report pages (*.html)"_s});
    QCOMPARE(path.value_or(QString()), folder.filePath(chosen));
}

void TestCBoxPrompt::NoFileIsChosen() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QTimer::singleShot(0, qApp, [] {
        if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) dialog->reject();
    });
    CBoxPrompt prompt;
    QVERIFY(!prompt.ChooseFile({.purpose = FileChoice::Purpose::Open,
                                .title = u"Open"_s,
                                .suggestedName = {},
                                .filter = u"Report pages (*.html)"_s}));
}

TEST_CLASS(TestCBoxPrompt);
#include "TestCBoxPrompt.moc"

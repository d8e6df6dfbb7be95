#include "lang/LoadText.h"
#include "support/BoxTable.h"
#include "support/CScriptedPrompt.h"
#include "support/TestProgram.h"

#include <QSet>
#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

MessageBox Question(Text id, Text title) {
    MessageBox box;
    box.textId = static_cast<int>(id);
    box.title = LoadText(title);
    box.text = LoadText(id);
    box.icon = BoxIcon::Warning;
    box.buttons = Buttons::YesNo;
    box.defaultAnswer = Answer::No;
    box.actionLabel = LoadText(title);
    return box;
}

MessageBox DeleteQuestion() {
    return Question(Text::AskDeleteRecords, Text::AskDeleteTitle);
}

MessageBox CopyQuestion() {
    return Question(Text::AskCopyRecords, Text::AskCopyTitle);
}

MessageBox NameQuestion(Text title) {
    return {.textId = static_cast<int>(Text::AskNameAgain),
            .title = LoadText(title),
            .text = LoadText(Text::AskNameAgain),
            .icon = BoxIcon::Question,
            .buttons = Buttons::OkCancel,
            .defaultAnswer = Answer::Ok,
            .actionLabel = {}};
}

}  // namespace

/// What other tests rely on: a question that wasn't expected, and one that never comes, fail the running
/// test. QEXPECT_FAIL turns that failure into the expected result here.
class TestCScriptedPrompt final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void ExpectedQuestionsAreAnsweredInOrder();
    void UnexpectedQuestionFails();
    void OtherQuestionFails();
    void MessageInsteadOfQuestionFails();
    void MissingQuestionFails();
    void AnswerWithoutAButtonFails();
    void ADifferentLookFails_data();
    void ADifferentLookFails();
    void ATitleOfSeveralIsCompared();
    void ATitleOfSeveralHasToBeGiven();
    void AnUnknownBoxFails();
    void BoxesAreGroupedByText();
    void FilesAreHandedOutInOrder();
    void UnexpectedFileFails();
};

void TestCScriptedPrompt::ExpectedQuestionsAreAnsweredInOrder() {
    CScriptedPrompt prompt;
    prompt.Expect(Text::AskDeleteRecords, Answer::Yes);
    prompt.Expect(Text::AskCopyRecords, Answer::No);
    prompt.ExpectTold(Text::AskDeleteRecords);
    QCOMPARE(prompt.Ask(DeleteQuestion()), Answer::Yes);
    QCOMPARE(prompt.Ask(CopyQuestion()), Answer::No);
    prompt.Tell(DeleteQuestion());
    const QString deletes = LoadText(Text::AskDeleteRecords);
    QCOMPARE(prompt.told, QStringList({deletes, LoadText(Text::AskCopyRecords), deletes}));
}

void TestCScriptedPrompt::UnexpectedQuestionFails() {
    CScriptedPrompt prompt;
    QEXPECT_FAIL("", "a question that nobody expected", Continue);
    const Answer answer = prompt.Ask(DeleteQuestion());
    QCOMPARE(answer, Answer::No);
}

void TestCScriptedPrompt::OtherQuestionFails() {
    CScriptedPrompt prompt;
    prompt.Expect(Text::AskDeleteRecords, Answer::Yes);
    QEXPECT_FAIL("", "another question came", Continue);
    const Answer other = prompt.Ask(CopyQuestion());
    QCOMPARE(other, Answer::No);
    QCOMPARE(prompt.Ask(DeleteQuestion()), Answer::Yes);
}

void TestCScriptedPrompt::MessageInsteadOfQuestionFails() {
    CScriptedPrompt prompt;
    prompt.Expect(Text::AskDeleteRecords, Answer::Yes);
    QEXPECT_FAIL("", "a message where a question was expected", Continue);
    prompt.Tell(DeleteQuestion());
    QCOMPARE(prompt.Ask(DeleteQuestion()), Answer::Yes);
}

void TestCScriptedPrompt::MissingQuestionFails() {
    CScriptedPrompt prompt;
    prompt.Expect(Text::AskDeleteRecords, Answer::Yes);
    QEXPECT_FAIL("", "an expected question never came", Continue);
    prompt.Finish();
}

void TestCScriptedPrompt::AnswerWithoutAButtonFails() {
    CScriptedPrompt prompt;
    prompt.Expect(Text::AskDeleteRecords, Answer::Cancel);
    QEXPECT_FAIL("", "a question with yes and no can't be cancelled", Continue);
    const Answer answer = prompt.Ask(DeleteQuestion());
    QCOMPARE(answer, Answer::Cancel);
}

void TestCScriptedPrompt::ADifferentLookFails_data() {
    QTest::addColumn<MessageBox>("box");
    const auto row = [](const char* name, const std::function<void(MessageBox&)>& change) {
        MessageBox box = DeleteQuestion();
        change(box);
        QTest::newRow(name) << box;
    };
    row("another title", [](MessageBox& box) { box.title = LoadText(Text::AskCopyTitle); });
    row("no title", [](MessageBox& box) { box.title.clear(); });
    row("another text under the same number", [](MessageBox& box) { box.text = u"Copy them?"_s; });
    row("no text", [](MessageBox& box) { box.text.clear(); });
    row("another icon", [](MessageBox& box) { box.icon = BoxIcon::Question; });
    row("a button more", [](MessageBox& box) { box.buttons = Buttons::YesNoCancel; });
    row("Yes as the default answer", [](MessageBox& box) { box.defaultAnswer = Answer::Yes; });
    row("Yes without its verb", [](MessageBox& box) { box.actionLabel.clear(); });
}

void TestCScriptedPrompt::ADifferentLookFails() {
    QFETCH(MessageBox, box);
    CScriptedPrompt prompt;
    prompt.Expect(Text::AskDeleteRecords, Answer::Yes);
    QEXPECT_FAIL("", "the box looks otherwise than the table of boxes states", Continue);
    const Answer answer = prompt.Ask(box);
    QCOMPARE(answer, Answer::Yes);
}

void TestCScriptedPrompt::ATitleOfSeveralIsCompared() {
    CScriptedPrompt prompt;
    prompt.Expect(Text::AskNameAgain, Answer::Ok, Text::RenameDefaultTitle);
    QCOMPARE(prompt.Ask(NameQuestion(Text::RenameDefaultTitle)), Answer::Ok);
    prompt.Expect(Text::AskNameAgain, Answer::Ok, Text::RenameDefaultTitle);
    QEXPECT_FAIL("", "the title of the other place", Continue);
    const Answer answer = prompt.Ask(NameQuestion(Text::DefaultsName));
    QCOMPARE(answer, Answer::Ok);
}

void TestCScriptedPrompt::ATitleOfSeveralHasToBeGiven() {
    CScriptedPrompt prompt;
    prompt.Expect(Text::AskNameAgain, Answer::Ok);
    QEXPECT_FAIL("", "a text with two titles, expected without one", Continue);
    const Answer answer = prompt.Ask(NameQuestion(Text::DefaultsName));
    QCOMPARE(answer, Answer::Ok);
}

void TestCScriptedPrompt::AnUnknownBoxFails() {
    CScriptedPrompt prompt;
    prompt.ExpectTold(Text::ProgramTitle);
    QEXPECT_FAIL("", "a text that no row of the table is for", Continue);
    prompt.Tell(Question(Text::ProgramTitle, Text::ProgramTitle));
}

/// Only neighbours are found together.
void TestCScriptedPrompt::BoxesAreGroupedByText() {
    QSet<int> done;
    QSet<QPair<int, int>> titles;
    const BoxRow* before = nullptr;
    for (const BoxRow& row : BoxTable()) {
        const int text = static_cast<int>(row.text);
        if (!before || before->text != row.text) QVERIFY2(!done.contains(text), qPrintable(TextName(text)));
        const QPair title(text, static_cast<int>(row.title));
        QVERIFY2(!titles.contains(title), qPrintable(TextName(text)));
        done.insert(text);
        titles.insert(title);
        before = &row;
    }
    QVERIFY(!done.isEmpty());
}

void TestCScriptedPrompt::FilesAreHandedOutInOrder() {
    CScriptedPrompt prompt;
    prompt.ExpectFile(u"/tmp/a.txt"_s);
    prompt.ExpectFile(std::nullopt);
    QCOMPARE(prompt.ChooseFile({}), std::optional(u"/tmp/a.txt"_s));
    QCOMPARE(prompt.ChooseFile({}), std::nullopt);
}

void TestCScriptedPrompt::UnexpectedFileFails() {
    CScriptedPrompt prompt;
    QEXPECT_FAIL("", "a choice of a file that nobody expected", Continue);
    const auto chosen = prompt.ChooseFile({});
    QCOMPARE(chosen, std::nullopt);
}

TEST_CLASS(TestCScriptedPrompt);
#include "TestCScriptedPrompt.moc"

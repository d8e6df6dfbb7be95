#include "lang/LoadText.h"
#include "support/CScriptedPrompt.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

MessageBox Question(Text id, const QString& text) {
    MessageBox box;
    box.textId = static_cast<int>(id);
    box.text = text;
    box.buttons = Buttons::YesNo;
    box.defaultAnswer = Answer::No;
    return box;
}

MessageBox DeleteQuestion() {
    return Question(Text::AskDeleteRecords, u"Delete them?"_s);
}

MessageBox CopyQuestion() {
    return Question(Text::AskCopyRecords, u"Copy them?"_s);
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
    QCOMPARE(prompt.told, QStringList({u"Delete them?"_s, u"Copy them?"_s, u"Delete them?"_s}));
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

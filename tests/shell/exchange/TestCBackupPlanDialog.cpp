#include "shell/exchange/CBackupPlanDialog.h"

#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QComboBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QSpinBox>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCBackupPlanDialog : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void ShowsAndGives_data();
    void ShowsAndGives();
    void WithoutBackupsTheFieldsAreAsleep();
    void EachLabelHasALetterOfItsOwn();
    void AFolderThatIsntThere();

 private:
    TestHome m_home;
};

void TestCBackupPlanDialog::ShowsAndGives_data() {
    QTest::addColumn<int>("days");
    QTest::addColumn<QString>("shown");
    QTest::newRow("never") << 0 << LoadText(Text::BackupPlanNever);
    QTest::newRow("daily") << 1 << LoadText(Text::BackupPlanDaily);
    QTest::newRow("weekly") << 7 << LoadText(Text::BackupPlanWeekly);
}

void TestCBackupPlanDialog::ShowsAndGives() {
    QFETCH(int, days);
    QFETCH(QString, shown);
    const BackupPlan plan{.everyDays = days, .folder = m_home.Path(), .keep = 12};
    CBackupPlanDialog dialog(plan, u"Last good backup: yesterday"_s, m_home.prompt, nullptr);
    QCOMPARE(dialog.findChild<QComboBox*>(u"backupEvery"_s)->currentText(), shown);
    QCOMPARE(dialog.findChild<QLabel*>(u"lastBackup"_s)->text(), u"Last good backup: yesterday"_s);
    QCOMPARE(dialog.GetPlan(), plan);
    dialog.accept();
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
}

void TestCBackupPlanDialog::WithoutBackupsTheFieldsAreAsleep() {
    CBackupPlanDialog dialog({}, {}, m_home.prompt, nullptr);
    auto* every = dialog.findChild<QComboBox*>(u"backupEvery"_s);
    auto* folder = dialog.findChild<QLineEdit*>(u"backupFolder"_s);
    QVERIFY(!folder->isEnabled());
    every->setFocus();
    QTest::keyClick(every, Qt::Key_Down);
    QVERIFY(folder->isEnabled());
    QCOMPARE(dialog.GetPlan().everyDays, 1);
}

/// And none shows the sign that marks the letter.
void TestCBackupPlanDialog::EachLabelHasALetterOfItsOwn() {
    const CBackupPlanDialog dialog({}, {}, m_home.prompt, nullptr);
    QSet<QKeySequence> letters;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        if (!label->buddy()) continue;
        QVERIFY2(label->text().count(u'&') == 1, qPrintable(label->text()));
        letters.insert(QKeySequence::mnemonic(label->text()));
    }
    QCOMPARE(letters.size(), 3);
}

void TestCBackupPlanDialog::AFolderThatIsntThere() {
    for (const QString& folder : {QString(), u"/nowhere/at/all"_s, u"relative"_s}) {
        CBackupPlanDialog dialog({.everyDays = 1, .folder = folder}, {}, m_home.prompt, nullptr);
        m_home.prompt.ExpectTold(Text::BackupPlanNoFolder);
        dialog.accept();
        m_home.prompt.Finish();
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
    }
}

TEST_CLASS(TestCBackupPlanDialog);
#include "TestCBackupPlanDialog.moc"

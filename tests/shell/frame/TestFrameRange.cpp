#include "shell/commands/CPeriodButton.h"
#include "shell/controls/CDateEdit.h"
#include "shell/frame/FrameHome.h"
#include "shell/frame/ModalUser.h"
#include "shell/look/IconTheme.h"
#include "support/TestProgram.h"

#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

void Type(const QDialog& dialog, const QString& field, const char* text) {
    auto* edit = dialog.findChild<CDateEdit*>(field);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, QString::fromLatin1(text));
}

}  // namespace

/// A period from one day to another, by the menu of the period button.
class TestFrameRange final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void FromOneDayToAnother() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        for (const int day : {2, 9, 16}) window.Add(day);
        QString offered;
        const ModalUser chooses([&offered](QDialog& dialog) {
            offered = dialog.findChild<CDateEdit*>(u"rangeFrom"_s)->text() + u' ' +
                      dialog.findChild<CDateEdit*>(u"rangeTo"_s)->text();
            Type(dialog, u"rangeFrom"_s, "11/09/2026");
            Type(dialog, u"rangeTo"_s, "11/16/2026");
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        auto& button = *window.Find<CPeriodButton>("periodButton");
        Q_EMIT button.menu()->aboutToShow();
        for (QAction* action : button.menu()->actions())
            if (action->text() == LoadText(Text::CmdPeriodRange)) {
                QVERIFY(!action->isChecked());
                action->trigger();
            }
        QVERIFY(chooses.Met());
        QCOMPARE(offered, u"11/01/2026 11/30/2026"_s);  // the days of the period before: this month
        QCOMPARE(window.app.Document().Filter().preset, 7);
        QCOMPARE(window.Rows(), 2);
        QVERIFY2(button.text().startsWith(u"11/09/"_s), qPrintable(button.text()));
        Q_EMIT button.menu()->aboutToShow();
        for (const QAction* action : button.menu()->actions())
            if (!action->isSeparator())
                QCOMPARE(action->isChecked(), action->text() == LoadText(Text::CmdPeriodRange));
    }

    /// A day that can't be read keeps the dialog open, and two days the wrong way round are spoken of.
    void WhatIsNoRange() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const ModalUser tries([](QDialog& dialog) {
            const auto* note = dialog.findChild<QLabel*>(u"rangeNote"_s);
            QVERIFY(note->isHidden());
            Type(dialog, u"rangeTo"_s, "10/05/2026");
            QCOMPARE(note->text(), u"The start lies after the end, so only 10/05/2026 is taken."_s);
            Type(dialog, u"rangeFrom"_s, "nothing");
            QTest::keyClick(&dialog, Qt::Key_Return);
            QVERIFY(dialog.isVisible());
            QCOMPARE(dialog.focusWidget()->objectName(), u"rangeFrom"_s);
            QVERIFY(!note->text().isEmpty());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        window.frame->RunCommand(Command::kPeriodRange);
        QVERIFY(tries.Met());
        QCOMPARE(window.app.Document().Filter().preset, 4);
    }

    /// Whatever the period is called, nothing beside its button moves.
    void TheButtonKeepsItsWidth() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const CPeriodButton& button = *window.Find<CPeriodButton>("periodButton");
        const int width = button.width();
        const int next = window.Find<QWidget>("button32845")->x();
        CPeriodCommands period(window.app.Document());
        for (const PeriodPresetRow& row : PeriodPresets()) {
            period.Preset(row.preset);
            QCoreApplication::processEvents();
            QCOMPARE(button.text(), LoadText(row.name));
            QCOMPARE(button.width(), width);
            QCOMPARE(window.Find<QWidget>("button32845")->x(), next);
        }
        period.All();
        QCoreApplication::processEvents();
        QCOMPARE(button.width(), width);
    }
};

TEST_CLASS(TestFrameRange);
#include "TestFrameRange.moc"

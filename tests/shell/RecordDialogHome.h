#pragma once

#include "app/CVelmarchApp.h"
#include "shell/CPickEdit.h"
#include "shell/CRecordDialog.h"
#include "support/TestHome.h"
#include "timers/CRecordTimers.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>
#include <memory>
#include <utility>

/// A record dialog over a scratch home, found by the names of its widgets.
class RecordDialogHome {
 public:
    RecordDialogHome() : timers(set, *home.document, *home.settings) {
        home.document->SetTimers(&timers);
        record.GenUnique();
        record.date.Set(11, 19, 2026);
        std::swap(theClockEntry, m_clockEntry);
        std::swap(theSpanEntry, m_spanEntry);
    }
    ~RecordDialogHome() {
        dialog.reset();
        std::swap(theClockEntry, m_clockEntry);
        std::swap(theSpanEntry, m_spanEntry);
    }
    RecordDialogHome(const RecordDialogHome&) = delete;
    RecordDialogHome& operator=(const RecordDialogHome&) = delete;

    /// Opens the dialog on the record, in front and with the focus.
    void Open() {
        dialog = std::make_unique<CRecordDialog>(
            RecordDialogSurroundings{*home.document, timers, *home.settings, home.prompt, home.clock});
        dialog->SetDraft(record);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }
    template <class Widget>
    [[nodiscard]] Widget* Find(const char* name) const {
        auto* widget = dialog->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget) qFatal("no widget %s", name);
        return widget;
    }
    [[nodiscard]] QString Shown(const char* name) const { return Find<QLineEdit>(name)->text(); }
    [[nodiscard]] QString Label(const char* name) const { return Find<QLabel>(name)->text(); }
    /// Types over what is in a field and stays in it.
    void Type(const char* name, const QString& keys) {
        auto* field = Find<QLineEdit>(name);
        field->setFocus();
        field->selectAll();
        if (keys.isEmpty())
            QTest::keyClick(field, Qt::Key_Delete);
        else
            QTest::keyClicks(field, keys);
    }
    /// Types over what is in a field and goes on to the next.
    void Enter(const char* name, const QString& keys) {
        Type(name, keys);
        QTest::keyClick(Find<QLineEdit>(name), Qt::Key_Tab);
    }
    /// At its left end, where a check box has its box.
    void Press(const char* name) {
        auto* button = Find<QAbstractButton>(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    /// Start, end, duration and break as they stand in the fields.
    [[nodiscard]] QString Times() const {
        return QStringLiteral("%1 to %2, %3 less %4")
            .arg(Shown("startField"), Shown("endField"), Shown("durationField"), Shown("breakField"));
    }

    static DateTimeVal Time(const QString& text) {
        DateTimeVal time;
        if (!time.ParseTimeText(text, true)) qFatal("no time: %s", qPrintable(text));
        return time;
    }
    /// "09:00" or nothing.
    void SetTimes(const QString& start, const QString& end) {
        if (!start.isEmpty()) record.SetStart(Time(start));
        if (!end.isEmpty()) record.SetEnd(Time(end));
    }

    TestHome home;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers;
    CTRecord record;
    CTRecord clockEntry, spanEntry;  ///< the scratch records of the pads
    std::unique_ptr<CRecordDialog> dialog;

 private:
    // What is installed: these two meanwhile, those from before at the end.
    CTRecord* m_clockEntry = &clockEntry;
    CTRecord* m_spanEntry = &spanEntry;
};

#pragma once

#include "entry/TimeDraft.h"
#include "shell/record/RecordDialogParts.h"

#include <QWidget>
#include <functional>
#include <vector>

class CRecordDialogWork;

/// The first page: the day and the four linked quantities of a time record, and beside them what the time was
/// spent on. Each key carries the entry to the
/// rules and shows what they made of the others; the field itself takes its final form when the user moves
/// on.
class CRecordDialogTime final : public QWidget {
    Q_OBJECT

 public:
    CRecordDialogTime(TimeDraft& draft, const RecordDialogContext& context, CMnemonics mnemonics);

    /// What was typed holds from now on.
    void Settle();
    /// Rewrites all texts from the record, except those that the user is typing or has yet to make readable.
    void ShowRecord();
    /// While the record has a timer its times can't be entered; what was typed and can't be read is dropped.
    void LockTimes(bool isLocked);
    /// The first field whose text can't be read, null when all can.
    [[nodiscard]] CPickEdit* FirstUnreadable() const;
    /// Whether the user has typed something that can't be read.
    [[nodiscard]] bool HasUnreadableEntry() const;
    [[nodiscard]] CDateEdit* DateField() const { return m_day.edit; }
    [[nodiscard]] CRecordDialogWork& Work() const { return *m_work; }

 Q_SIGNALS:
    void Changed();     ///< the record's times or money changed
    void EntryTried();  ///< into a locked field

 private:
    /// One field: how it shows the record, and how what was entered into it goes into the draft.
    struct Field {
        TimeDraft::Field place;
        CPickEdit* edit;
        std::function<void(const CTRecord& record)> show;
        std::function<void()> enter;
        bool adds;  ///< entering the same again adds it up, while that is set
    };
    struct TimeRow;
    struct SpanRow;

    void AddFields(QGridLayout& form, CMnemonics& mnemonics);
    void AddDate(QGridLayout& form, CMnemonics& mnemonics);
    void AddTime(QGridLayout& form, const TimeRow& row, CMnemonics& mnemonics);
    void AddSpan(QGridLayout& form, const SpanRow& row, CMnemonics& mnemonics);
    void AddWork(QGridLayout& form, CMnemonics& mnemonics);
    void AddSums(QGridLayout& form);
    void AddNote(QGridLayout& form);
    void AddSwitch(QGridLayout& form, const char* settingName, const QString& text, CMnemonics& mnemonics);
    void AddField(Field field);
    void Enter(const Field& field);

    TimeDraft& m_draft;
    const RecordDialogContext& m_context;
    CCfgStore& m_settings;
    std::vector<Field> m_fields;
    CPickEdit* m_typed = nullptr;  ///< what is entered there is not settled yet
    RecordDialogParts::DateRow m_day;
    CRecordDialogWork* m_work = nullptr;
    QLabel* m_net = nullptr;
    QLabel* m_money = nullptr;
    QLabel* m_note = nullptr;  ///< what the clock hides
};

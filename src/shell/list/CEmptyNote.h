#pragma once

#include "app/RecordMode.h"
#include "viewmodel/list/EmptyReason.h"

#include <QWidget>

class QLabel;
class QPushButton;

/// Stands in the list's place while it shows nothing: why that is so, and a button for the one useful thing;
/// where there are no records at all, the way to the first steps as well.
class CEmptyNote final : public QWidget {
    Q_OBJECT

 public:
    explicit CEmptyNote(QWidget* parent = nullptr);

    /// mode: of the records that aren't there. what: the name of the period or the words that were looked
    /// for, for the sentence; of a filter the whole sentence.
    void Show(EmptyReason reason, RecordMode mode, const QString& what);

 Q_SIGNALS:
    /// The command that the button stands for.
    void CommandWanted(int command);

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void ApplyLook();

    QLabel* m_picture;
    QLabel* m_sentence;
    QPushButton* m_button;
    QPushButton* m_guide;
    RecordMode m_mode = RecordMode::Time;
    int m_command = 0;
};

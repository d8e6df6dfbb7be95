#pragma once

#include <QLineEdit>

class QToolButton;

/// A field for a value that is typed in any of its forms, stepped with Up, Down, Page Up and Page Down, or
/// picked from a popup (Alt+Down, F4, or its button). A subclass says what the value is.
class CPickEdit : public QLineEdit {
    Q_OBJECT

 public:
    /// forms: how a value can be entered, for the tip.
    CPickEdit(const QString& forms, QWidget* parent);

    /// False while the text typed is no value; the field keeps it, with a mark.
    [[nodiscard]] bool IsReadable() const { return m_isReadable; }
    /// Whether the user entered something since the value was last shown.
    [[nodiscard]] bool IsTouched() const { return m_isTouched; }
    /// Whether the value was reached by stepping on from the one last shown.
    [[nodiscard]] bool IsStepped() const { return m_isStepped; }
    /// Whether the text is still, or again, the one last shown.
    [[nodiscard]] bool HasShownText() const { return text() == m_shownText; }
    /// The user can't enter anything, for this reason; an empty one ends it.
    void Lock(const QString& reason);
    [[nodiscard]] bool IsLocked() const { return isReadOnly(); }
    /// Why the text can't be read and what can.
    [[nodiscard]] virtual QString WhyUnreadable() const = 0;
    /// Number of the text that WhyUnreadable fills in.
    [[nodiscard]] virtual int UnreadableTextId() const = 0;

    void OpenPopup();
    /// Never narrower than a date with its mark and its button.
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
    void Entered();     ///< typed, stepped or picked; the value may be unreadable
    void Settled();     ///< the user is done with what was entered: Return, or the focus moved on
    void EntryTried();  ///< something was to be entered into a locked field

 protected:
    void keyPressEvent(QKeyEvent* event) override;

    /// Takes the text as the value; false when it is none.
    [[nodiscard]] virtual bool ReadText() = 0;
    /// Moves the value by steps of its smaller or larger kind.
    virtual void StepBy(int steps, bool isLarge) = 0;
    /// A new popup, closed, for the value as it is.
    [[nodiscard]] virtual QWidget* MakePopup() = 0;

    /// Shows a value that was set from outside.
    void ShowText(const QString& text);
    /// Shows a value that the user picked, reads it, and announces it.
    void EnterText(const QString& text);
    /// Shows a value to which the user stepped, and announces it. Its text need not be one that can be typed.
    void EnterStep(const QString& text);

 private:
    void PutText(const QString& text);
    void Reread();
    void TakeText();
    [[nodiscard]] bool TryPickKeys(const QKeyEvent& event);

    QToolButton* m_button;
    QString m_forms;
    QString m_shownText;
    bool m_isReadable = true;
    bool m_isTouched = false;
    bool m_isStepped = false;
    bool m_isShowing = false;  ///< the text is being set from here
};

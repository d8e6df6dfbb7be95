#pragma once

#include "shell/controls/CItemCombo.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

/// Drives one dialog by keys and clicks as a user does, and reads what it shows. Widgets are found by name.
class DialogUser {
 public:
    DialogUser() = default;
    explicit DialogUser(QWidget& opened) { Look(opened); }
    /// The dialog that the next calls are about.
    void Look(QWidget& opened) { window = &opened; }

    template <class Widget>
    [[nodiscard]] Widget* Find(const char* name) const {
        auto* widget = window->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget) qFatal("no widget %s", name);
        return widget;
    }
    /// A field's line, whether it has a list or not.
    [[nodiscard]] QLineEdit* Line(const char* name) const {
        auto* widget = Find<QWidget>(name);
        auto* combo = qobject_cast<QComboBox*>(widget);
        auto* line = combo ? combo->lineEdit() : qobject_cast<QLineEdit*>(widget);
        if (!line) qFatal("%s is no field", name);
        return line;
    }
    [[nodiscard]] QString Shown(const char* name) const { return Line(name)->text(); }
    [[nodiscard]] QString Label(const char* name) const { return Find<QLabel>(name)->text(); }
    [[nodiscard]] bool IsOn(const char* name) const { return Find<QAbstractButton>(name)->isChecked(); }
    [[nodiscard]] bool IsEnabled(const char* name) const { return Find<QWidget>(name)->isEnabled(); }

    /// A key where it goes: to an open popup, else to the widget.
    static void Key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup ? popup : widget, static_cast<Qt::Key>(key), modifiers);
    }
    void Key(const char* name, int key, Qt::KeyboardModifiers modifiers = {}) const {
        Key(Find<QWidget>(name), key, modifiers);
    }
    void Keys(const char* name, const QString& keys) const {
        for (const QChar key : keys) {
            QWidget* popup = QApplication::activePopupWidget();
            QWidget* target = popup ? popup : Find<QWidget>(name);
            if (key.unicode() < 128)
                QTest::keyClicks(target, QString(key));
            else
                QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(key), Qt::NoModifier);
        }
    }
    /// Types over what is in a field and stays in it.
    void Type(const char* name, const QString& keys) const {
        Find<QWidget>(name)->setFocus();
        Line(name)->selectAll();
        if (keys.isEmpty())
            Key(name, Qt::Key_Delete);
        else
            Keys(name, keys);
    }
    /// Types over what is in a field and goes on to the next; proposals are left aside.
    void Enter(const char* name, const QString& keys) const {
        Type(name, keys);
        if (QApplication::activePopupWidget()) Key(name, Qt::Key_Escape);
        Key(name, Qt::Key_Tab);
    }
    /// Opens the list of a field and takes one of its entries.
    void Pick(const char* name, const QString& entry) const {
        auto* combo = Find<CItemCombo>(name);
        combo->setFocus();
        Key(combo, Qt::Key_F4);
        const int row = combo->findText(entry, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (row < 0) qFatal("%s doesn't offer it", name);
        combo->view()->setCurrentIndex(combo->model()->index(row, 0));
        QTest::keyClick(combo->view(), Qt::Key_Return);
    }
    /// What the field offers when it is opened.
    [[nodiscard]] QStringList Offered(const char* name) const {
        auto* combo = Find<CItemCombo>(name);
        combo->setFocus();
        Key(combo, Qt::Key_F4);
        QStringList texts;
        for (int i = 0; i < combo->count(); ++i) texts << combo->itemText(i);
        combo->hidePopup();
        return texts;
    }
    /// At its left end, where a check box has its box.
    void Press(const char* name) const {
        auto* button = Find<QAbstractButton>(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    void TurnTo(int page) const { Find<QTabWidget>("pages")->setCurrentIndex(page); }

    /// The mnemonics of all that is in sight; an empty one for what has none.
    [[nodiscard]] QStringList Mnemonics() const {
        QStringList keys;
        const auto note = [&keys](const QString& text) { keys << QKeySequence::mnemonic(text).toString(); };
        for (const auto* pages : window->findChildren<QTabWidget*>())
            for (int i = 0; i < pages->count(); ++i) note(pages->tabText(i));
        for (const auto* label : window->findChildren<QLabel*>())
            if (label->isVisible() && label->buddy()) note(label->text());
        for (const auto* button : window->findChildren<QAbstractButton*>())
            if (button->isVisible() && !button->text().isEmpty()) note(button->text());
        return keys;
    }
    /// The first widget that takes the focus without a name for tests or screen readers.
    [[nodiscard]] QString Unnamed() const {
        for (const auto* widget : window->findChildren<QWidget*>()) {
            const bool isInner =
                widget->objectName().startsWith(QLatin1String("qt_")) || widget->window() != window;
            if (widget->focusPolicy() == Qt::NoFocus || isInner) continue;
            if (widget->objectName().isEmpty() || widget->accessibleName().isEmpty())
                return QStringLiteral("%1 %2").arg(QLatin1String(widget->metaObject()->className()),
                                                   widget->objectName());
        }
        return {};
    }
    /// The names of what Tab comes to, from where the focus is.
    [[nodiscard]] QStringList TabOrder(qsizetype count) const {
        QStringList names;
        for (qsizetype i = 0; i < count; ++i) {
            names << window->focusWidget()->objectName();
            QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        }
        return names;
    }

    QWidget* window = nullptr;
};

#define VERIFY_MNEMONICS(user, least)                                                      \
    do {                                                                                   \
        const QStringList keys = (user).Mnemonics();                                       \
        QVERIFY(keys.size() >= (least));                                                   \
        for (const QString& key : keys)                                                    \
            QVERIFY2(!key.isEmpty() && keys.count(key) == 1, qPrintable(keys.join(u' '))); \
    } while (false)

#define VERIFY_SMALL_SCREEN(dialog)                                                             \
    do {                                                                                        \
        const QSize least = (dialog).minimumSizeHint();                                         \
        QVERIFY2(least.width() <= 640 && least.height() <= 480,                                 \
                 qPrintable(QStringLiteral("%1 x %2").arg(least.width()).arg(least.height()))); \
    } while (false)

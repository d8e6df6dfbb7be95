#pragma once

#include "lang/Text.h"
#include "viewmodel/guide/GuideDraft.h"

#include <QWidget>

/// One page of the guide. What is shown first has the keyboard when the page opens (focusProxy).
class CGuidePage : public QWidget {
    Q_OBJECT

 public:
    using QWidget::QWidget;

    [[nodiscard]] virtual Text Title() const = 0;
    [[nodiscard]] virtual Text Hint() const = 0;
    virtual void Show(const GuideDraft& draft) = 0;
    /// Puts what the page holds into the draft.
    virtual void Take(GuideDraft& draft) const = 0;
    /// The field that keeps the user on the page; null without one.
    [[nodiscard]] virtual QWidget* WrongField() const { return nullptr; }
};

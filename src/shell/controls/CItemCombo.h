#pragma once

#include <QComboBox>
#include <functional>

class QCompleter;
class QStringListModel;

/// A field for an item of a list, at most 255 characters: typed freely, or picked from what is offered. What
/// is offered is asked anew when the field is entered and each time that it opens (Alt+Down, F4, its button).
/// While something is typed, the entries that hold it anywhere are proposed below; nothing is taken over
/// unless it is chosen, so "acme" stays "acme" beside an item "Acme". A single one, in which what is typed
/// begins a word, is chosen by going on with Tab: "bak" becomes "Hollis Bakery", Escape before it keeps
/// "bak".
class CItemCombo final : public QComboBox {
    Q_OBJECT

 public:
    /// The texts on offer, in their order.
    using Offer = std::function<QStringList()>;

    /// What is said in place of an empty list; nothing when there is no such text.
    using WhyEmpty = std::function<QString()>;

    explicit CItemCombo(Offer offer, WhyEmpty whyEmpty = {}, QWidget* parent = nullptr);

    /// Shows a text that comes from outside; it isn't announced.
    void ShowText(const QString& text);
    [[nodiscard]] QString Text() const { return currentText(); }

    void showPopup() override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Turning the wheel over a form scrolls, it doesn't change what is entered.
    void wheelEvent(QWheelEvent* event) override;
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
    void Edited();  ///< the user typed or picked another text

 private:
    void BuildProposals();
    void Fill();
    void Propose();
    void TakeProposal(const QString& text);
    [[nodiscard]] QString ProposalForTab() const;

    Offer m_offer;
    WhyEmpty m_whyEmpty;
    QStringListModel* m_offered;
    QCompleter* m_completer;
    bool m_isShowing = false;  ///< the text is being set from outside
};

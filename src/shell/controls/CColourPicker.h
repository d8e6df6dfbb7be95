#pragma once

#include <QColor>
#include <QToolButton>
#include <cstdint>

/// A button that shows a colour with its name and opens the colours in a grid, with a choice besides them
/// that is no colour. Values are 0x00BBGGRR, or kAutomaticColour.
class CColourPicker final : public QToolButton {
    Q_OBJECT

 public:
    explicit CColourPicker(QWidget* parent = nullptr);

    /// What the colour is for, in words.
    void SetPurpose(const QString& purpose);
    /// Words for the automatic choice ("Automatic" unless set), the colour it stands for, and how that looks
    /// here; a picker that is at this colour shows the same words.
    void SetAutomatic(const QString& label, std::uint32_t standsFor, const QColor& look);
    void SetColour(std::uint32_t colour);
    [[nodiscard]] std::uint32_t Colour() const { return m_colour; }

    /// Wide enough for the longest name, so that buttons below one another are alike.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
    /// The user picked another colour.
    void ColourChanged(std::uint32_t colour);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void initStyleOption(QStyleOptionToolButton* option) const override;

 private:
    void OpenPopup();
    void ShowColour();
    [[nodiscard]] bool IsAutomatic() const;
    [[nodiscard]] QString NameOf(std::uint32_t colour) const;
    [[nodiscard]] QIcon Swatch(const QColor& colour) const;

    std::uint32_t m_colour = 0;
    QString m_purpose;
    QString m_automaticLabel;
    std::uint32_t m_standsFor;
    QColor m_automaticLook;
};

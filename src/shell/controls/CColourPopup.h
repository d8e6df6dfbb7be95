#pragma once

#include "shell/controls/CPickPopup.h"

#include <QIcon>
#include <cstdint>

class QTableWidget;

/// The colours in a grid, an automatic choice above them, Cancel below. Arrows move, Return or a click picks.
class CColourPopup final : public CPickPopup {
    Q_OBJECT

 public:
    static constexpr int kAutomatic = 3;

    /// automaticLabel: words for the choice that is no colour; automaticIcon: what it looks like.
    CColourPopup(std::uint32_t colour, const QString& automaticLabel, const QIcon& automaticIcon,
                 QWidget* parent);

    /// The colour picked, which may be kAutomaticColour.
    [[nodiscard]] std::uint32_t Colour() const { return m_colour; }

 protected:
    PadState Press(int id) override;
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void FillGrid();
    void FitGrid();

    std::uint32_t m_colour;
    QTableWidget* m_grid;
    QPushButton* m_automatic = nullptr;
    QPushButton* m_cancel = nullptr;
};

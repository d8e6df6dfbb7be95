#pragma once

#include "lang/Text.h"

#include <QDialog>
#include <QStringList>
#include <optional>

class CProfile;
class CSearchList;

/// A list of texts from which one is picked.
class CPickDialog final : public QDialog {
    Q_OBJECT

 public:
    /// What is picked from.
    struct Choice {
        QString title;
        QStringList rows;
        int present = -1;       ///< the row selected at first, -1 for none
        bool hasSearch = true;  ///< a short list needs none
        QString note = {};      ///< a sentence below the list
        Text accept = Text::PickAccept;
    };
    /// The profile keeps its size.
    CPickDialog(const Choice& choice, CProfile& profile, QWidget* parent = nullptr);

    /// The row that is selected, -1 for none.
    [[nodiscard]] int Picked() const;
    void done(int result) override;

 private:
    CProfile& m_profile;
    bool m_hasSearch;
    CSearchList* m_list;
};

/// The row picked; nothing when the user cancelled.
[[nodiscard]] std::optional<int> RunPickDialog(QWidget* parent, const CPickDialog::Choice& choice,
                                               CProfile& profile);

#pragma once

#include "lang/Text.h"

#include <QDialog>
#include <vector>

class CProfile;
class QDialogButtonBox;
struct LabelChange;

/// What a question about many names asks.
struct LabelQuestion {
    Text text, title;
    Text accept;  ///< on the button that says yes
};

/// A question, and below it every name that would be another one: the field, what it is called now, what it
/// would be called then. Cancel is the default.
class CLabelPreview final : public QDialog {
    Q_OBJECT

 public:
    CLabelPreview(const LabelQuestion& question, const std::vector<LabelChange>& changes, CProfile& profile,
                  QWidget* parent = nullptr);
    void done(int result) override;

 private:
    [[nodiscard]] QDialogButtonBox* MakeButtons(Text accept);

    CProfile& m_profile;
};

/// True when the user agreed.
[[nodiscard]] bool AskAboutLabels(QWidget* parent, const LabelQuestion& question,
                                  const std::vector<LabelChange>& changes, CProfile& profile);

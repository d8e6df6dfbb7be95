#pragma once

#include <QTextBrowser>

/// The text of the user guide with its pictures, all of which come with the program. Links lead to its own
/// chapters only.
class CGuideText final : public QTextBrowser {
    Q_OBJECT

 public:
    CGuideText();

    /// False when the guide isn't there.
    [[nodiscard]] bool ShowGuide();

 protected:
    /// Pictures are no wider than the text.
    [[nodiscard]] QVariant loadResource(int type, const QUrl& name) override;

 private:
    void FrameTables();
};

#pragma once

#include "platform/host/SafeFile.h"

#include <QByteArrayView>
#include <QTemporaryDir>

class CLauncher;

/// Shows pages in the user's browser. They lie in a folder of their own that nobody else may read and that
/// goes with this object.
class CBrowserPage {
 public:
    explicit CBrowserPage(CLauncher& launcher) : m_launcher(launcher) {}

    /// Writes the page and has it opened. Each page is a file of its own, so that one that is still shown
    /// doesn't change. The error says what failed, the browser too.
    [[nodiscard]] FileOutcome Open(QByteArrayView page);

 private:
    CLauncher& m_launcher;
    QTemporaryDir m_folder;
    int m_count = 0;
};

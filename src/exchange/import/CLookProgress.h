#pragma once

#include "changes/CProgress.h"
#include "exchange/text/CTextFile.h"
#include "lang/LoadText.h"

/// Shows how far a file is read, from its beginning until this goes.
class CLookProgress {
 public:
    CLookProgress(CProgress& progress, const CTextFile& file) : m_progress(progress), m_file(file) {
        m_progress.Begin(LoadText(Text::ProgressLook), static_cast<int>(file.Size() / kBytesOfStep + 1));
    }
    ~CLookProgress() { m_progress.End(); }
    CLookProgress(const CLookProgress&) = delete;
    CLookProgress& operator=(const CLookProgress&) = delete;

    /// False: the user cancels.
    [[nodiscard]] bool GoesOn() {
        for (; m_steps < m_file.Place() / kBytesOfStep; ++m_steps)
            if (!m_progress.Advance()) return false;
        return true;
    }

 private:
    static constexpr std::int64_t kBytesOfStep = 1 << 16;

    CProgress& m_progress;
    const CTextFile& m_file;
    std::int64_t m_steps = 0;
};

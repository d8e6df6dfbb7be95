#pragma once

#include <QString>

/// Where a text goes piece by piece while it is being made.
class CTextSink {
 public:
    virtual ~CTextSink() = default;
    /// The next piece; it ends with a whole character. False: it can't be taken, and no more is wanted.
    [[nodiscard]] virtual bool Take(const QString& piece) = 0;
};

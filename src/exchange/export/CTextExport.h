#pragma once

#include "exchange/text/Delimiters.h"
#include "lang/Text.h"
#include "platform/host/SafeFile.h"
#include "platform/host/TextCoder.h"

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

class CPrompt;

/// How a text file is written.
struct ExportForm {
    Delimiters delimiters;
    QByteArray encoding = "utf-8";
};

/// What an export came to.
struct [[nodiscard]] ExportEnd {
    bool isWritten = false;  ///< whole, and on the disk
    Text message{};          ///< why it isn't
    QString words;
    qint64 replaced = 0;  ///< characters that the encoding lacks, written as question marks
    int lost = 0;         ///< lines that can't be imported again as they are
    QString lostWords;    ///< which they are
};

/// A text file in the making. It takes its place when it is whole; until then, and where anything fails, the
/// former file stays as it is.
class CTextExport {
 public:
    CTextExport(const QString& path, const ExportForm& form);

    /// Lines with their ends. False once anything has failed; Finish then says what.
    [[nodiscard]] bool Put(const QString& lines);
    [[nodiscard]] ExportEnd Finish();

 private:
    CTextEncoder m_encoder;
    CSafeFile m_file;
    bool m_couldBegin;
};

/// Tells the user why nothing was exported.
void TellNotExported(const ExportEnd& end, CPrompt& prompt);

/// What the user has to know of a file that was written.
struct ExportNote {
    Text id;
    QString words;
};
[[nodiscard]] std::vector<ExportNote> NotesOn(const ExportEnd& end);
/// Why the records can't be deleted, since the file would not bring them back; nothing where it would.
[[nodiscard]] std::optional<Text> WhyNotDeleted(const ExportEnd& end);

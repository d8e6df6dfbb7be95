#include "cli/commands/ReportOutlet.h"

#include "cli/commands/RecordSteps.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"
#include "platform/host/SafeFile.h"
#include "reports/write/CHTMLWriter.h"
#include "reports/write/CTextSink.h"
#include "reports/write/CsvTable.h"
#include "reports/write/PageBytes.h"
#include "reports/write/ReportPage.h"

#include <functional>

namespace {

using PutBytes = std::function<bool(QByteArrayView bytes)>;

class CPageSink final : public CTextSink {
 public:
    explicit CPageSink(const PutBytes& put) : m_put(put) {}
    [[nodiscard]] bool Take(const QString& piece) override { return m_put(m_encoder.Encode(piece)); }
    [[nodiscard]] qint64 LostCount() const { return m_encoder.LostCount(); }

 private:
    const PutBytes& m_put;
    CPageEncoder m_encoder;
};

class CTableSink final : public CTextSink {
 public:
    explicit CTableSink(const PutBytes& put) : m_put(put) {}
    [[nodiscard]] bool Take(const QString& piece) override { return m_put(piece.toUtf8()); }

 private:
    const PutBytes& m_put;
};

/// False where it breaks off.
bool WriteTo(const PutBytes& put, RunFormat format, const ReportResult& result, CListingRows& rows,
             Console& console) {
    if (format == RunFormat::Table) {
        CTableSink sink(put);
        return WriteCsv(sink, result, rows);
    }
    CPageSink sink(put);
    CHTMLWriter writer(sink);
    const bool isWhole = WriteReportPage(writer, result, rows);
    if (sink.LostCount() > 0)
        console.out.Note(FormatText<Text::PageLosesCharacters>(static_cast<int>(sink.LostCount())));
    return isWhole;
}

}  // namespace

ExitCode WriteReport(const ReportOutlet& outlet, const ReportResult& result, CListingRows& rows,
                     Console& console) {
    if (!outlet.file) {
        const PutBytes put = [&console](QByteArrayView bytes) {
            console.out.Put(bytes);
            return !console.out.IsBroken();
        };
        return WriteTo(put, outlet.format, result, rows, console) ? ExitCode::Done : ExitCode::Failed;
    }
    CSafeFile file(*outlet.file, FileAudience::UserDefault);
    const PutBytes put = [&file](QByteArrayView bytes) { return file.Write(bytes); };
    const bool isWhole = WriteTo(put, outlet.format, result, rows, console);
    if (!isWhole && file.Error().isEmpty()) return ExitCode::Failed;
    const FileOutcome outcome = file.Finish();
    return outcome.written ? ExitCode::Done : Refuse(ExitCode::Failed, outcome.error, console);
}

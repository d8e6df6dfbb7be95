#pragma once

#include "viewmodel/report/CPageBuilder.h"
#include "viewmodel/report/ReportPage.h"

#include <QString>
#include <QStringList>
#include <memory>

/// Reads the page of a report part by part, so that nobody waits for a long one. It takes whatever users'
/// texts bring along: tags that it doesn't know are passed over with their attributes, "<" and "&" that begin
/// nothing stand for themselves, and what a text names (pictures, styles, links, scripts) is neither fetched
/// nor run. The work is linear in the length of the page.
class CReportReader {
 public:
    explicit CReportReader(const QString& html);

    /// Reads so many more characters, or a little more. True at the end.
    [[nodiscard]] bool Advance(qsizetype characters);
    /// How much is read, from 0 to 1.
    [[nodiscard]] double Progress() const;
    /// What was read, once it is all; the reader is used up then.
    [[nodiscard]] std::unique_ptr<ReportPage> TakePage() { return m_builder.Finish(); }

 private:
    void ReadMark();
    void ReadTag(qsizetype end);
    void ReadText(qsizetype end);
    void ReadSign();
    void SkipComment();
    void SkipHidden(QStringView name);
    [[nodiscard]] bool IsTagAt(qsizetype at) const;

    const QString m_html;  ///< shared with the caller's: looking at it must not copy it
    qsizetype m_at = 0;
    bool m_hasNoCommentEnd = false;  ///< from here on; looked for once
    QStringList m_endless;           ///< hidden elements that have no end tag from here on
    CPageBuilder m_builder;
};

/// Reads a whole page at once.
[[nodiscard]] std::unique_ptr<ReportPage> ReadReport(const QString& html);

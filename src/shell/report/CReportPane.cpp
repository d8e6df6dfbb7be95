#include "shell/report/CReportPane.h"

#include "lang/LoadText.h"
#include "platform/settings/CProfile.h"
#include "shell/look/FormRows.h"
#include "shell/report/CReportFindBar.h"
#include "shell/report/CReportView.h"
#include "shell/report/CSumChooser.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

QString Section() {
    return LoadText(Text::SectionReport);
}
QString Entry() {
    return LoadText(Text::EntryShrink);
}

}  // namespace

CReportPane::CReportPane(CProfile& profile, QWidget* parent)
    : QWidget(parent),
      m_profile(profile),
      m_shrinks(profile.GetInt(Section(), Entry(), 1) != 0),
      m_sums(new CSumChooser),
      m_view(new CReportView),
      m_find(new CReportFindBar),
      m_note(new QLabel) {
    setObjectName(QStringLiteral("reportPane"));
    NameWidget(*m_note, QStringLiteral("reportNote"), LoadText(Text::ReportNotes));
    m_note->setTextFormat(Qt::PlainText);
    m_note->setMargin(kFormSpace / 2);
    m_note->hide();
    auto* column = new QVBoxLayout(this);
    column->setSpacing(0);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_sums);
    column->addWidget(m_view, 1);
    column->addWidget(m_find);
    column->addWidget(m_note);
    setFocusProxy(m_view);
    connect(m_view, &CReportView::SelectionChanged, this, &CReportPane::StateChanged);
    connect(m_find, &CReportFindBar::Changed, this, [this] { Find(false, true); });
    connect(m_find, &CReportFindBar::NextWanted, this, [this](bool backwards) { Find(backwards, false); });
    connect(m_find, &CReportFindBar::Closed, this, [this] {
        m_view->ClearFind();
        m_view->setFocus();
    });
}

void CReportPane::ShowPage(const QString& page) {
    Say({});
    m_view->SetShrinkToFit(m_shrinks);
    m_view->Clear();
    m_view->SetPage(page);
}

void CReportPane::Clear() {
    Say({});
    m_find->hide();
    m_view->Clear();
}

bool CReportPane::HasSelection() const {
    return m_view->HasSelection();
}

void CReportPane::Say(const QString& what) {
    ShowValue(*m_note, LoadText(Text::ReportNotes), what);
    m_note->setVisible(!what.isEmpty());
}

void CReportPane::OpenFind() {
    m_find->Open();
    if (!m_find->Words().isEmpty()) Find(false, true);
}

/// fromHere: a place at which the report stands already is a place, too, so that it stays while one types.
void CReportPane::Find(bool backwards, bool fromHere) {
    if (fromHere) m_view->ClearFind();
    const FoundText found =
        m_view->Find(m_find->Words(), {.backwards = backwards, .matchCase = m_find->MatchesCase()});
    m_find->ShowPlaces(found.number, found.count);
}

void CReportPane::ToggleShrink() {
    m_shrinks = !m_shrinks;
    m_profile.WriteInt(Section(), Entry(), m_shrinks ? 1 : 0);
    m_view->SetShrinkToFit(m_shrinks);
}

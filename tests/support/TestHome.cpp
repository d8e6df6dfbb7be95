#include "support/TestHome.h"

#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"

#include <QtGlobal>

namespace {

void Demand(bool done, const char* what) {
    if (!done) qFatal("TestHome: %s failed", what);
}

DateTimeVal TimeOf(const QString& text) {
    DateTimeVal time;
    Demand(time.ParseTimeText(text, true), qPrintable(text));
    return time;
}

}  // namespace

TestHome::TestHome(const CRegionalInfo& regionalInfo) : m_path(m_folder.path()), region(regionalInfo) {
    Open();
}

TestHome::TestHome(const QString& folder, const CRegionalInfo& regionalInfo)
    : m_path(folder), region(regionalInfo) {
    Open();
}

TestHome::~TestHome() {
    thePulldownCatalogue = m_previousCatalogue;
    catalogue.reset();
    document.reset();
    m_precisions.reset();
    settings.reset();
}

void TestHome::Open() {
    Demand(LoadLanguageLibrary(QStringLiteral(LANGUAGE_FOLDER)), "the language library");
    m_regionScope = std::make_unique<RegionScope>(region);
    Demand(tree.Open(m_path + QStringLiteral("/velmarch.settings")), "opening the settings");
    profile = std::make_unique<CProfile>(tree, LoadText(Text::ProfileKeyName));
    settings = std::make_unique<CCfgStore>(tree, *profile, prompt, region, LoadText(Text::BaseKeyPath));
    m_precisions = std::make_unique<PrecisionScope>(*settings);

    manager.m_directory = m_path;
    manager.m_fileName = LoadText(Text::StoreFileName);
    manager.m_thirdLocation = LoadText(Text::StoreThirdLocation);
    eActionDisposition source, second;
    Demand(manager.InitDataSrc(source, second), "opening the store");
    store = std::make_unique<CRecordStore>(manager, prompt, QStringLiteral("velmarch"));
    for (const RecordKind kind :
         {RecordKind::Time, RecordKind::Expense, RecordKind::PulldownItem, RecordKind::Dependency})
        Demand(manager.InitDataSrcTable(store->TableName(kind), *NewRecord(kind)), "making a table");
    document = std::make_unique<CVelmarchDoc>(DocumentContext{*store, views, m_pump, clock, *settings});
    catalogue = std::make_unique<CPulldownCatalogue>(
        CPulldownCatalogue::Context{manager, prompt, *settings, QStringLiteral("velmarch")});
    (void)catalogue->Load();  // what is wrong with it, the prompt is told
    thePulldownCatalogue = catalogue.get();
}

QString TestHome::AddTime(int year, int month, int day, const QString& start, const QString& end) {
    CTRecord record;
    record.GenUnique();
    record.date.Set(month, day, year);
    if (!start.isEmpty()) record.SetStart(TimeOf(start));
    if (!end.isEmpty()) record.SetEnd(TimeOf(end));
    QString id;
    Demand(document->AddRecord(record, {Notify::Later, Commit::Now}, &id), "adding a record");
    document->FlushPending(Hint::Added);
    return id;
}

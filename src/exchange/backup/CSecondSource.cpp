#include "exchange/backup/CSecondSource.h"

#include "app/HomeFiles.h"
#include "exchange/backup/BackupFormat.h"
#include "lang/FormatText.h"
#include "platform/sqlite/CSqliteFile.h"

CSecondSource::CSecondSource(const QString& home, CPrompt& prompt)
    : m_manager(LoadText(Text::SecondManagerName), LoadText(Text::SecondManagerPurpose)),
      m_store(m_manager, prompt, DataSourceName()) {
    m_manager.m_directory = home;
    m_manager.m_fileName = LoadText(Text::StoreFileName);
    m_manager.m_thirdLocation = LoadText(Text::StoreThirdLocation);
    m_manager.m_mayCreate = false;
    m_manager.LeaveWithoutChecks();
}

bool CSecondSource::Open() {
    eActionDisposition source{}, second{};
    return m_manager.InitDataSrc(source, second);
}

QString CSecondSource::FindDamage() {
    CSqliteFile& file = m_manager.File();
    if (QString report = file.IntegrityReport(); !report.isEmpty()) return report;
    for (const auto& [kind, name] : BackupFormat::kTables) {
        QStringList ids;
        if (!m_manager.FindFaults(m_store.TableName(kind), ids)) return m_manager.m_error;
        if (!ids.isEmpty()) return FormatText<Text::RecordNotAsWritten>(ids.front());
    }
    return {};
}

std::optional<int> CSecondSource::CountOf(RecordKind kind) {
    if (!m_manager.Query(LoadText(Text::SqlCountFrom) + m_store.TableName(kind), false)) return std::nullopt;
    const int count = m_manager.m_recordset->GetFieldValueString(0).toInt();
    m_manager.CloseQuery();
    return count;
}

std::optional<int> CSecondSource::CountRecords() {
    int all = 0;
    for (const BackupFormat::TableRow& table : BackupFormat::kTables) {
        const auto count = CountOf(table.kind);
        if (!count) return std::nullopt;
        all += *count;
    }
    return all;
}

ReadMoment::ReadMoment(CVOSrcMgr& source)
    : m_source(source), m_isOwn(!source.HasOpenChanges()), m_isOpen(!m_isOwn || source.BeginRead()) {}

ReadMoment::~ReadMoment() {
    m_source.CloseQuery();
    if (m_isOwn) m_source.Discard();
}

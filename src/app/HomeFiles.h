#pragma once

#include "records/FieldDef.h"

#include <QString>
#include <QStringList>

class CProfile;

/// The files of a home, and what its settings note of its store.
[[nodiscard]] QString StorePath(const QString& home);
[[nodiscard]] QString SettingsPath(const QString& home);
[[nodiscard]] QString HistoryPath(const QString& home);
/// Suffix of all table names.
[[nodiscard]] QString DataSourceName();

/// The tables in the order of their making.
inline constexpr RecordKind kStoreTables[] = {RecordKind::Time, RecordKind::Expense, RecordKind::PulldownItem,
                                              RecordKind::Dependency};

/// Whether the home had a store before, so that its loss is noticed.
[[nodiscard]] bool IsStoreKnown(const CProfile& profile);
/// Writes only what isn't noted yet, as the other does.
[[nodiscard]] bool NoteStoreKnown(CProfile& profile, bool isKnown);
/// Whether damage was met in the store: it is looked over before anything is written to it again.
[[nodiscard]] bool IsStoreDamaged(const CProfile& profile);
[[nodiscard]] bool NoteStoreDamaged(CProfile& profile, bool isDamaged);

/// Whether timers were lost with damaged settings, and no timer was started since.
[[nodiscard]] bool AreTimersLost(const CProfile& profile);
[[nodiscard]] bool NoteTimersLost(CProfile& profile, bool areLost);
/// Whether the timers are among damaged values (CSettingsTree::DamagedValues).
[[nodiscard]] bool HasTimers(const QStringList& damagedValues);

#pragma once

#include "app/RecordMode.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/FilterArguments.h"
#include "reports/definition/CReportDef.h"

#include <QString>
#include <QStringList>
#include <optional>

class CSettingsOwner;
struct Console;

/// What goes out of a run.
enum class RunFormat { Page, Table };

/// A run as it was asked for on the command line.
struct ReportRequest {
    RecordMode mode = RecordMode::Time;
    CReportDef report{};
    std::optional<QString> name{};     ///< of the stored definition; none: a quick run
    std::optional<QStringList> ids{};  ///< the selected records, as typed
    std::optional<QString> query{};    ///< the stored query whose records are taken
    CArguments filter{};               ///< the options that narrow the records
    bool isFiltered = false;           ///< there are some
    RunFormat format = RunFormat::Page;
    std::optional<QString> file{};
};

/// Reads the whole command line. What can't be understood is refused before anything is stored or read.
[[nodiscard]] FilterProblem ReadReportRequest(const CArguments& arguments, Console& console,
                                              const CSettingsOwner& owner, ReportRequest& request);

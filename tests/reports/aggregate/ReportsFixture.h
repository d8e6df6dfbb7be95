#pragma once

#include "app/CFieldCatalogue.h"
#include "app/FieldLabels.h"
#include "config/Settings.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>
#include <memory>
#include <vector>

/// What tests of reports share: names of fields, settings, a region, and short records.
class ReportsFixture {
 public:
    FieldLabels labels;
    Settings settings;
    CFieldCatalogue catalogue{labels, settings};
    RegionScope region{CRegionalInfo{}};

    std::vector<CTRecord> times;
    std::vector<CERecord> expenses;

    CTRecord& AddTime(const QString& notes = {}) {
        times.emplace_back().notes = notes;
        return times.back();
    }
    CERecord& AddExpense(const QString& notes = {}) {
        expenses.emplace_back().notes = notes;
        return expenses.back();
    }
};

[[nodiscard]] inline bool LoadTexts() {
    return LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR));
}

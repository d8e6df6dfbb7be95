#pragma once

#include "records/CVORec.h"

#include <QMap>
#include <QString>

class CCfgStore;
class CJsonText;
class COutput;

/// Amount and effective hours of a currency, added up in double precision as the status bar does it.
struct RecordSum {
    double amount = 0.0;
    double hours = 0.0;  ///< of time records
};
/// By currency.
using RecordSums = QMap<QString, RecordSum>;

/// Adds a record to the sums of its kind.
void AddTo(RecordSums& sums, const CVORec& record);
/// An object for each currency; expenses have no hours.
void WriteSums(CJsonText& json, RecordKind kind, const RecordSums& sums, const CCfgStore& settings);
/// A line for each currency that anything was added to.
void WriteSumLines(COutput& out, RecordKind kind, const RecordSums& sums, const CCfgStore& settings);

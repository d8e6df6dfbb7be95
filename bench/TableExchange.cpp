#include "TableExchange.h"

#include "Measure.h"
#include "Places.h"
#include "TableLines.h"

#include <filesystem>
#include <string>

using namespace TableLines;

namespace {

/// What memory may grow by, whatever the number of records.
constexpr double kMostMegabytes = 20;

struct ExchangeRow {
    const char* name;
    const char* line;  ///< by the clock: some of the work is done in two threads
};
constexpr ExchangeRow kRows[] = {
    {"backup", "backup (floor: the rows read, the bytes hashed)"},
    {"verify", "verify (floor: the bytes hashed and decoded)"},
    {"restore", "restore (floor: a bare insert)"},
    {"export", "export (floor: the rows read, the bytes written)"},
    {"import", "import (floor: a bare parse and insert)"},
};

}  // namespace

void ExchangeLines(const Places& places, int size) {
    const std::filesystem::path scratch = places.scratch / "exchange";
    std::filesystem::create_directories(scratch);
    const Finished run = Run({places.Program("bench-exchange"), places.Home(size), scratch});
    const auto milliseconds = [&run](const ExchangeRow& row, const char* what) {
        return run.Figure(std::string(row.name) + what) / 1000;
    };
    for (const ExchangeRow& row : kRows)
        Line(row.line, milliseconds(row, "_us"), milliseconds(row, "_floor_us"), 2, "ms");
    for (const ExchangeRow& row : kRows)
        Line((std::string(row.name) + ", all processors together").c_str(),
             milliseconds(row, "_processor_us"), milliseconds(row, "_floor_processor_us"), 0, "ms");
    for (const ExchangeRow& row : kRows)
        Alone((std::string("memory that ") + row.name + " takes").c_str(),
              run.Figure(std::string(row.name) + "_bytes") / 1e6, kMostMegabytes, "MB");
    std::filesystem::remove_all(scratch);
}

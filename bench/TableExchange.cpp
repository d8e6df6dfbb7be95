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
    const char* line;
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
    for (const ExchangeRow& row : kRows)
        Line(row.line, run.Figure(std::string(row.name) + "_us") / 1000,
             run.Figure(std::string(row.name) + "_floor_us") / 1000, 2, "ms");
    for (const ExchangeRow& row : kRows)
        Alone((std::string("memory that ") + row.name + " takes").c_str(),
              run.Figure(std::string(row.name) + "_bytes") / 1e6, kMostMegabytes, "MB");
    std::filesystem::remove_all(scratch);
}

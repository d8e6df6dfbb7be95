#pragma once

#include "Measure.h"

#include <filesystem>
#include <string>

/// Where the programs and the scratch homes are.
struct Places {
    std::filesystem::path programs, scratch;
    [[nodiscard]] std::string Program(const char* name) const { return programs / name; }
    [[nodiscard]] std::filesystem::path Home(int size) const { return scratch / std::to_string(size); }
    [[nodiscard]] std::string Store(int size) const { return Home(size) / "velmarch.store"; }
    [[nodiscard]] Command Cli(int size, const Command& words) const {
        Command command{Program("velmarch-cli"), "--home", Home(size)};
        command.insert(command.end(), words.begin(), words.end());
        return command;
    }
};

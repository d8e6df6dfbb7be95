#pragma once

#include <map>
#include <string>
#include <vector>

/// A finished process: how long it took from start to end, and what it printed.
struct Finished {
    double microseconds = 0;
    double toFirstOutput = 0;  ///< microseconds as well; of one that prints nothing, to its end
    std::string output;
    /// A line "name value" of the output; ends the run when it is missing.
    [[nodiscard]] double Figure(const std::string& name) const;
};

using Command = std::vector<std::string>;

/// Starts a program, waits for its end; one that fails ends the run.
[[nodiscard]] Finished Run(const Command& command);

[[nodiscard]] double Median(std::vector<double> values);
[[nodiscard]] double Best(const std::vector<double>& values);

/// Runs the commands in turns, so that a machine that gets slower or faster meanwhile does it to all of them,
/// and gives the medians of their times. prepare runs before each round, untimed.
template <class Prepare>
[[nodiscard]] std::vector<double> InTurns(int rounds, const std::vector<Command>& commands,
                                          Prepare&& prepare) {
    std::vector<std::vector<double>> times(commands.size());
    for (int round = 0; round < rounds; ++round) {
        prepare(round);
        for (std::size_t i = 0; i < commands.size(); ++i) times[i].push_back(Run(commands[i]).microseconds);
    }
    std::vector<double> medians;
    for (const std::vector<double>& one : times) medians.push_back(Median(one));
    return medians;
}
[[nodiscard]] inline std::vector<double> InTurns(int rounds, const std::vector<Command>& commands) {
    return InTurns(rounds, commands, [](int) {});
}

#include "Measure.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace {

[[noreturn]] void Fail(const Command& command, const std::string& why) {
    std::fputs("bench:", stderr);
    for (const std::string& word : command) std::fprintf(stderr, " %s", word.c_str());
    std::fprintf(stderr, ": %s\n", why.c_str());
    std::exit(1);
}

using Clock = std::chrono::steady_clock;

double MicrosecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

void ReadToEnd(int handle, Clock::time_point start, Finished& finished) {
    char buffer[65536];
    ssize_t got = read(handle, buffer, sizeof buffer);
    finished.toFirstOutput = MicrosecondsSince(start);
    for (; got > 0; got = read(handle, buffer, sizeof buffer))
        finished.output.append(buffer, static_cast<std::size_t>(got));
}

}  // namespace

double Finished::Figure(const std::string& name) const {
    std::istringstream lines(output);
    std::string word;
    double value = 0;
    while (lines >> word >> value)
        if (word == name) return value;
    Fail({name}, "this figure is missing");
}

Finished Run(const Command& command) {
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) Fail(command, "no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);

    const auto start = Clock::now();
    pid_t process = 0;
    if (posix_spawn(&process, words[0], &actions, nullptr, words.data(), environ) != 0)
        Fail(command, "can't be started");
    close(ends[1]);
    Finished finished;
    ReadToEnd(ends[0], start, finished);
    int status = 0;
    waitpid(process, &status, 0);
    finished.microseconds = MicrosecondsSince(start);
    close(ends[0]);
    posix_spawn_file_actions_destroy(&actions);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) Fail(command, "failed");
    return finished;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double Best(const std::vector<double>& values) {
    return *std::min_element(values.begin(), values.end());
}

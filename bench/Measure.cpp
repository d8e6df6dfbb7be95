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

std::string ReadToEnd(int handle) {
    std::string text;
    char buffer[65536];
    for (ssize_t got = 0; (got = read(handle, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    return text;
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

    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    if (posix_spawn(&process, words[0], &actions, nullptr, words.data(), environ) != 0)
        Fail(command, "can't be started");
    close(ends[1]);
    Finished finished;
    finished.output = ReadToEnd(ends[0]);
    int status = 0;
    waitpid(process, &status, 0);
    finished.microseconds =
        std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
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

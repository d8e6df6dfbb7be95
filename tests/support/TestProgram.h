#pragma once

#include <QObject>
#include <memory>

/// The test classes of a program, by name. Each file of tests registers its class; the program runs one of
/// them, named by its first argument, in a process of its own.
class TestProgram {
 public:
    using Make = std::unique_ptr<QObject> (*)();
    /// The result has no use but to be the value of a static.
    static bool Register(const char* name, Make make);
    /// Runs the class named by the first argument with the rest of them, or every class when none is named.
    /// The exit code of the test, 2 for a name that no class has.
    [[nodiscard]] static int Run(int argc, char** argv);
};

/// Stands where QTEST_MAIN would, once at the end of a file of tests.
#define TEST_CLASS(Name)                                      \
    [[maybe_unused]] static const bool is##Name##Registered = \
        TestProgram::Register(#Name, []() -> std::unique_ptr<QObject> { return std::make_unique<Name>(); })

#include "support/TestProgram.h"

#include <QTest>
#include <cstdio>
#include <cstring>
#include <map>
#include <string_view>
#include <vector>

namespace {

std::map<std::string_view, TestProgram::Make>& Classes() {
    static std::map<std::string_view, TestProgram::Make> classes;
    return classes;
}

int RunOne(TestProgram::Make make, int argc, char** argv) {
    const auto test = make();
    return QTest::qExec(test.get(), argc, argv);
}

}  // namespace

bool TestProgram::Register(const char* name, Make make) {
    return Classes().emplace(name, make).second;
}

int TestProgram::Run(int argc, char** argv) {
    if (argc < 2 || argv[1][0] == '-') {
        int failed = 0;
        for (const auto& [name, make] : Classes()) failed += RunOne(make, argc, argv);
        return failed;
    }
    const auto found = Classes().find(argv[1]);
    if (found == Classes().end()) {
        std::fprintf(stderr, "There is no test class \"%s\" in this program.\n", argv[1]);
        return 2;
    }
    std::vector<char*> rest{argv[0]};
    rest.insert(rest.end(), argv + 2, argv + argc);
    rest.push_back(nullptr);
    return RunOne(found->second, static_cast<int>(rest.size()) - 1, rest.data());
}

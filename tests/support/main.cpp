// Compiled into each program of tests. A program with widgets defines TEST_APPLICATION as QApplication.
#include "support/TestProgram.h"

#include TEST_APPLICATION_HEADER

#if defined NDEBUG || defined QT_NO_DEBUG
#error "Tests are built with asserts: by the preset dev or asan."
#endif

int main(int argc, char** argv) {
    const TEST_APPLICATION application(argc, argv);
    return TestProgram::Run(argc, argv);
}

#include <QCoreApplication>

/// The floor of a process start: an application object and nothing else.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return 0;
}

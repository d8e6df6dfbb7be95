// The floor of a window's start: a list in a window, empty, painted once.

#include "Painted.h"
#include "ProcessorTime.h"

#include <QApplication>
#include <QListView>
#include <QMainWindow>
#include <QStringListModel>
#include <cstdio>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    QStringListModel model;
    auto* list = new QListView(&window);
    list->setModel(&model);
    window.setCentralWidget(list);
    window.resize(1000, 680);
    WaitForPaint(*list->viewport(), [&window] { window.show(); });
    std::printf("first_rows_us %.3f\n", ProcessorMicroseconds());
    return 0;
}

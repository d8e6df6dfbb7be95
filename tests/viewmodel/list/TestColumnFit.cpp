#include "viewmodel/list/ColumnFit.h"

#include "support/TestProgram.h"

#include <QTest>

using Needs = std::vector<ColumnNeed>;
using Widths = std::vector<int>;

Q_DECLARE_METATYPE(Needs)
Q_DECLARE_METATYPE(Widths)

/// The widths of columns in more or less room.
class TestColumnFit final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Fit_data() {
        QTest::addColumn<Needs>("needs");
        QTest::addColumn<int>("room");
        QTest::addColumn<Widths>("widths");
        const Needs three{{60, 60, 80}, {50, 200, 200}, {50, 100, 150}};
        QTest::newRow("no column") << Needs{} << 100 << Widths{};
        QTest::newRow("room for all that is wanted") << three << 1000 << Widths{80, 200, 150};
        QTest::newRow("exactly what is wanted") << three << 430 << Widths{80, 200, 150};
        QTest::newRow("less air") << three << 390 << Widths{80, 200, 110};
        QTest::newRow("all contents and no air") << three << 360 << Widths{60, 200, 100};
        QTest::newRow("the widest gives first") << three << 300 << Widths{60, 140, 100};
        QTest::newRow("then the next") << three << 240 << Widths{60, 90, 90};
        QTest::newRow("not below the least") << three << 100 << Widths{60, 50, 50};
        QTest::newRow("no room") << three << 0 << Widths{60, 50, 50};
        QTest::newRow("a window that is not shown yet") << three << -20 << Widths{60, 50, 50};
        QTest::newRow("a column of the user's width stays")
            << Needs{{300, 300, 300}, {50, 200, 200}} << 400 << Widths{300, 100};
        QTest::newRow("wide ones of the user's don't overflow")
            << Needs{{10000, 10000, 10000}, {50, 200, 200}} << 400 << Widths{10000, 50};
    }
    void Fit() {
        QFETCH(Needs, needs);
        QFETCH(int, room);
        QTEST(FitColumns(needs, room), "widths");
    }
};

TEST_CLASS(TestColumnFit);
#include "TestColumnFit.moc"

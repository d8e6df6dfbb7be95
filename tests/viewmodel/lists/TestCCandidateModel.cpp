#include "viewmodel/lists/CCandidateModel.h"

#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"
#include "viewmodel/lists/DependencyModelHome.h"
#include "viewmodel/lists/DraggedItems.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QMimeData>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Fixture : DependencyModelHome {
    QStringList takenOff;
    CCandidateModel model{*editor, [this](const QStringList& path) {
                              takenOff = path;
                              return true;
                          }};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

}  // namespace

class TestCCandidateModel final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void NoNode() {
        Fixture fixture;
        QCOMPARE(fixture.model.List(), -1);
        fixture.model.Show(&fixture.At());
        fixture.model.Show(nullptr);
        QCOMPARE(fixture.model.List(), -1);
        QCOMPARE(fixture.model.rowCount(), 0);
    }

    void OfANode() {
        Fixture fixture;
        fixture.model.Show(&fixture.At());
        QCOMPARE(fixture.model.List(), 16);
        QCOMPARE(fixture.model.Shown(), QStringList{u"c"_s});
        fixture.model.Show(&fixture.At("B"));
        QCOMPARE(fixture.model.List(), 17);
        QCOMPARE(fixture.model.Shown(), QStringList({u"P"_s, u"Q"_s}));
        QCOMPARE(fixture.model.RowOf(u"Q"_s), 1);
        QCOMPARE(fixture.model.RowOf(u"q"_s), -1);
    }

    void Narrowing() {
        Fixture fixture;
        fixture.Fill(32, {u"read a lot"_s, u"a read"_s});
        fixture.model.Show(&fixture.At("A/P"));
        QVERIFY(!fixture.model.IsNarrowed());
        fixture.model.Narrow(u"READ a"_s);
        QCOMPARE(fixture.model.Shown(), QStringList({u"read a lot"_s, u"a read"_s}));
        QVERIFY(fixture.model.IsNarrowed());
        QCOMPARE(fixture.model.Count(), 3);
        QCOMPARE(fixture.model.RowOf(u"write"_s), -1);
        fixture.model.Show(&fixture.At("A/Q"));  // the words stay
        QCOMPARE(fixture.model.Shown(), QStringList({u"read a lot"_s, u"a read"_s}));
        fixture.model.Narrow({});
        QVERIFY(!fixture.model.IsNarrowed());
    }

    void Dragging() {
        Fixture fixture;
        fixture.model.Show(&fixture.At("B"));
        const std::unique_ptr<QMimeData> data(
            fixture.model.mimeData({fixture.model.index(0), fixture.model.index(1)}));
        const auto dragged = DraggedCandidates::FromMime(*data);
        QVERIFY(dragged);
        QCOMPARE(dragged->list, 17);
        QCOMPARE(dragged->texts, QStringList({u"P"_s, u"Q"_s}));
    }

    void ALineThatIsDroppedGoesFromTheTree() {
        Fixture fixture;
        const std::unique_ptr<QMimeData> line(DraggedLine{{u"1"_s, u"2"_s}}.ToMime());
        QVERIFY(fixture.model.canDropMimeData(line.get(), Qt::MoveAction, -1, -1, {}));
        QVERIFY(fixture.model.dropMimeData(line.get(), Qt::MoveAction, -1, -1, {}));
        QCOMPARE(fixture.takenOff, QStringList({u"1"_s, u"2"_s}));
        const std::unique_ptr<QMimeData> items(DraggedCandidates{16, {u"c"_s}}.ToMime());
        QVERIFY(!fixture.model.canDropMimeData(items.get(), Qt::MoveAction, -1, -1, {}));
        QVERIFY(!fixture.model.dropMimeData(items.get(), Qt::MoveAction, -1, -1, {}));
    }

    void FiftyThousand() {
        DependencyModelHome fixture;
        QVERIFY(fixture.home.manager.File().Execute(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<50000) INSERT INTO "
            "item_velmarch SELECT 33, 1, printf('item %05d', i), 0, printf('%032X', i) FROM n"));
        fixture.editor.reset();
        QVERIFY(fixture.home.catalogue->Load());
        CDependencyEditor editor(*fixture.home.catalogue, RecordMode::Time);
        QVERIFY(editor.Add(editor.Tree().Root(), u"A"_s));
        auto* a = editor.Tree().Walk({u"A"_s});
        QVERIFY(editor.Add(*a, u"P"_s) && editor.Add(*a->FirstChild(), u"write"_s));
        CCandidateModel model(editor, [](const QStringList&) { return false; });
        QElapsedTimer timer;
        timer.start();
        model.Show(a->FirstChild()->FirstChild());
        QCOMPARE(model.rowCount(), 50000);
        model.Narrow(u"item 4999"_s);
        QCOMPARE(model.rowCount(), 15);  // 04999 to 44999, and ten from 49990
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    }
};

TEST_CLASS(TestCCandidateModel);
#include "TestCCandidateModel.moc"

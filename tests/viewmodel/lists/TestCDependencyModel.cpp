#include "viewmodel/lists/CDependencyModel.h"

#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"
#include "viewmodel/lists/DependencyModelHome.h"
#include "viewmodel/lists/DraggedItems.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QMimeData>
#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;

namespace {

using Home = DependencyModelHome;

/// The model, looked over at each change. What it was asked for at the start, it goes on to know.
struct Fixture : Home {
    CDependencyModel model{*editor, [](int list) { return u"List %1"_s.arg(list); }};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};

    [[nodiscard]] QString Shown() const { return Drawn(model, model.RootIndex()); }
    [[nodiscard]] QModelIndex Line(const char* path) const { return model.IndexOf(At(path)); }
    bool Drop(QMimeData* dragged, const char* onto) {
        const std::unique_ptr<QMimeData> data(dragged);
        return model.dropMimeData(data.get(), Qt::MoveAction, -1, -1, Line(onto));
    }
};

}  // namespace

class TestCDependencyModel final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void TheRootIsALine() {
        const Fixture fixture;
        QCOMPARE(fixture.model.rowCount({}), 1);
        QCOMPARE(fixture.model.RootIndex().data().toString(), u"All"_s);
        QCOMPARE(fixture.Shown(), u"A(P Q(write)) B"_s);
        QCOMPARE(fixture.Line("A/Q").data(Qt::ToolTipRole).toString(), u"List 17: Q"_s);
        QCOMPARE(fixture.Line("A/Q").row(), 1);
        QCOMPARE(fixture.Line("A/Q").parent(), fixture.Line("A"));
    }

    void ALineBreakInAText() {
        Fixture fixture;
        fixture.Fill(16, {u"two\nlines"_s});
        QVERIFY(fixture.editor->Add(fixture.At(), u"two\nlines"_s));
        QCOMPARE(fixture.Shown(), u"A(P Q(write)) B two lines"_s);
    }

    void Adding() {
        Fixture fixture;
        const QPersistentModelIndex b = fixture.Line("B");
        QSignalSpy inserted(&fixture.model, &QAbstractItemModel::rowsInserted);
        fixture.Fill(16, {u"aa"_s});
        QCOMPARE(fixture.editor->Add(fixture.At(), {u"c"_s, u"aa"_s}), 2);
        QCOMPARE(fixture.Shown(), u"A(P Q(write)) aa B c"_s);
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(b.row(), 2);
        QCOMPARE(b.data().toString(), u"B"_s);
        QCOMPARE(fixture.editor->AddAll(fixture.At("aa")), 2);
        QCOMPARE(fixture.Shown(), u"A(P Q(write)) aa(P Q) B c"_s);
    }

    void Removing() {
        Fixture fixture;
        const QPersistentModelIndex b = fixture.Line("B"), write = fixture.Line("A/Q/write");
        QVERIFY(fixture.editor->Remove(fixture.At("A")));
        QCOMPARE(fixture.Shown(), u"B"_s);
        QCOMPARE(b.row(), 0);
        QVERIFY(!write.isValid());
    }

    void Moving() {
        Fixture fixture;
        const QPersistentModelIndex q = fixture.Line("A/Q"), write = fixture.Line("A/Q/write");
        QVERIFY(fixture.editor->AddAll(fixture.At("B")) == 2 && fixture.editor->Remove(fixture.At("B/Q")));
        QVERIFY(fixture.editor->Move(fixture.At("A/Q"), fixture.At("B")));
        QCOMPARE(fixture.Shown(), u"A(P) B(P Q(write))"_s);
        QCOMPARE(q.parent(), fixture.Line("B"));
        QCOMPARE(write.parent(), q);
    }

    void Renaming() {
        Fixture fixture;
        const QPersistentModelIndex p = fixture.Line("A/P");
        QCOMPARE(fixture.editor->RenameItem(17, u"P"_s, u"Z"_s), CDependencyEditor::Renamed::Done);
        QCOMPARE(fixture.Shown(), u"A(Q(write) Z) B"_s);
        QCOMPARE(p.row(), 1);
        QCOMPARE(p.data().toString(), u"Z"_s);
    }

    void DeletingAnItemWithSeveralPlaces() {
        Fixture fixture;
        QCOMPARE(fixture.editor->AddAll(fixture.At("B")), 2);
        const QPersistentModelIndex b = fixture.Line("B");
        QVERIFY(fixture.editor->DeleteItem(17, u"Q"_s));
        QCOMPARE(fixture.Shown(), u"A(P) B(P)"_s);
        QVERIFY(fixture.editor->DeleteItem(16, u"A"_s));
        QCOMPARE(fixture.Shown(), u"B(P)"_s);
        QCOMPARE(b.row(), 0);
    }

    void AnotherProgramWrote() {
        Fixture fixture;
        {
            const TestHome other(fixture.home.Path());
            QVERIFY(other.catalogue->AddItem(16, u"D"_s, false));
            QVERIFY(other.catalogue->DeleteItem(16, u"B"_s));
        }
        QVERIFY(fixture.editor->TakeUp());
        QCOMPARE(fixture.Shown(), u"A(P Q(write))"_s);
        QCOMPARE(fixture.model.rowCount({}), 1);
    }

    void CandidatesAreDroppedWhereTheyFit() {
        Fixture fixture;
        const auto candidates = [] { return DraggedCandidates{17, {u"Q"_s, u"P"_s}}.ToMime(); };
        QVERIFY(!fixture.Drop(candidates(), ""));
        QVERIFY(!fixture.Drop(candidates(), "A/Q"));
        QVERIFY(fixture.Drop(candidates(), "B"));
        QCOMPARE(fixture.Shown(), u"A(P Q(write)) B(P Q)"_s);
        QVERIFY(!fixture.Drop(candidates(), "B"));  // there already
        QVERIFY(fixture.Drop(DraggedCandidates{16, {u"c"_s}}.ToMime(), ""));
        QCOMPARE(fixture.Shown(), u"A(P Q(write)) B(P Q) c"_s);
    }

    /// Between two lines is under their parent, above the first one under the root.
    void DroppedBetweenLines() {
        Fixture fixture;
        const std::unique_ptr<QMimeData> data(DraggedCandidates{16, {u"c"_s}}.ToMime());
        QVERIFY(fixture.model.canDropMimeData(data.get(), Qt::MoveAction, 1, 0, fixture.Line("")));
        QVERIFY(fixture.model.dropMimeData(data.get(), Qt::MoveAction, 0, 0, {}));
        QCOMPARE(fixture.Shown(), u"A(P Q(write)) B c"_s);
    }

    void ALineIsDroppedUnderAnother() {
        Fixture fixture;
        const auto drag = [&](const char* path) { return fixture.model.mimeData({fixture.Line(path)}); };
        QVERIFY(!fixture.Drop(drag("A/Q"), ""));
        QVERIFY(!fixture.Drop(drag("A/Q"), "A"));
        QVERIFY(!fixture.Drop(drag("A"), "B"));
        QVERIFY(fixture.Drop(drag("A/Q"), "B"));
        QCOMPARE(fixture.Shown(), u"A(P) B(Q(write))"_s);
    }

    void WhatCannotBeDragged() {
        const Fixture fixture;
        QVERIFY(!(fixture.model.flags(fixture.model.RootIndex()) & Qt::ItemIsDragEnabled));
        QVERIFY(fixture.model.flags(fixture.Line("A")) & Qt::ItemIsDragEnabled);
        QMimeData text;
        text.setText(u"A"_s);
        QVERIFY(!fixture.model.canDropMimeData(&text, Qt::MoveAction, -1, -1, fixture.Line("B")));
        QMimeData broken;
        broken.setData(DraggedLine::Type(), "x");
        QVERIFY(!fixture.model.canDropMimeData(&broken, Qt::MoveAction, -1, -1, fixture.Line("B")));
        const std::unique_ptr<QMimeData> gone(DraggedLine{{u"nobody"_s}}.ToMime());
        QVERIFY(!fixture.model.canDropMimeData(gone.get(), Qt::MoveAction, -1, -1, fixture.Line("B")));
    }

    /// 10,000 children of one node, walked as a view does that shows them all, without a search for each.
    void ManyNodes() {
        Home home;
        QVERIFY(home.home.manager.File().Execute(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<10000) INSERT INTO "
            "item_velmarch SELECT 16, 1, printf('%05d', i), 0, printf('%032X', i) FROM n"));
        QVERIFY(home.home.catalogue->Load());
        CDependencyEditor editor(*home.home.catalogue, RecordMode::Time);
        QVERIFY(editor.AddAll(editor.Tree().Root()) > 10000);
        QElapsedTimer timer;
        timer.start();
        const CDependencyModel model(editor, [](int) { return QString(); });
        const QModelIndex root = model.RootIndex();
        int found = 0;
        for (int row = 0; row < model.rowCount(root); ++row)
            if (model.index(row, 0, root).parent() == root) ++found;
        QCOMPARE(found, 10003);
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    }
};

TEST_CLASS(TestCDependencyModel);
#include "TestCDependencyModel.moc"

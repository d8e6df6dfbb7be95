#pragma once

#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "viewmodel/tree/CDataTree.h"

#include <QTest>

/// "A 2 [x 1, y 1], B 1 [x 1]": the nodes below one, each with its count.
inline QString Below(const CTreeNode& node) {
    QStringList words;
    for (const CTreeNode* child : node.Children()) {
        const QString below = Below(*child);
        words.append(QStringLiteral("%1 %2").arg(child->Text()).arg(child->Count()) +
                     (below.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(below)));
    }
    return words.join(QStringLiteral(", "));
}

/// A document whose views are a tree: hints reach it while the document is as it is when they are sent.
class DataTreeFixture final : public CViewListener {
 public:
    TestHome home;
    CNoPump pump;
    CVelmarchDoc document{{*home.store, *this, pump, home.clock, *home.settings}};
    CDataTree tree{document, *home.settings};

    /// The captions of the levels.
    explicit DataTreeFixture(const char* levels = "Client Project") {
        [&] { QVERIFY(document.Store().BeginBatch()); }();
        SetLevels(ColumnHalf::Time, levels);
        Rebuild();
    }
    ~DataTreeFixture() override { static_cast<void>(document.Store().Commit()); }
    DataTreeFixture(const DataTreeFixture&) = delete;
    DataTreeFixture& operator=(const DataTreeFixture&) = delete;

    void OnHint(Hint hint, const QStringList& ids) override { tree.OnHint(hint, ids); }
    void SetLevels(ColumnHalf half, const char* levels) {
        CTreeColSet& columns = home.settings->TreeColumns();
        QStringList all;
        for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
            all.append(columns.EntryAt(column).caption);
        columns.AssignOrder(half, all, QString::fromLatin1(levels).split(u' ', Qt::SkipEmptyParts));
    }
    void Rebuild() {
        document.BuildVisible();
        document.NotifyViews(Hint::Rebuild);
    }
    /// Words of the tree below its root.
    [[nodiscard]] QString Tree() const { return Below(tree.Root()); }

    static CTRecord Record(const QString& client, const QString& project) {
        CTRecord record;
        record.GenUnique();
        record.item1 = client;
        record.item2 = project;
        return record;
    }
    QString Add(const CVORec& record, bool notify = true) {
        QString id;
        [&] {
            QVERIFY(document.AddRecord(record, {notify ? Notify::Yes : Notify::Later, Commit::Later}, &id));
        }();
        return id;
    }
    QString Add(const char* client, const char* project) {
        return Add(Record(QString::fromUtf8(client), QString::fromUtf8(project)));
    }
    void Change(const QString& id, const QString& client, const QString& project) {
        CTRecord record;
        record.Copy(*document.FindTime(id));
        record.item1 = client;
        record.item2 = project;
        QVERIFY(document.ModifyRecord(record, id, {Notify::Yes, Commit::Later}));
    }
    void Delete(const QString& id) { QVERIFY(document.DeleteRecord(RecordKind::Time, id, Notify::Yes)); }
    /// What a rebuild would make.
    [[nodiscard]] QString Rebuilt() {
        CDataTree fresh(document, *home.settings);
        fresh.Rebuild();
        return Below(fresh.Root());
    }
};

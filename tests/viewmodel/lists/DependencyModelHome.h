#pragma once

#include "support/TestHome.h"
#include "viewmodel/lists/CDependencyModel.h"

#include <QTest>

/// A scratch home with items and an edited tree of times: A(P Q(write)) B, and the item c that hangs nowhere.
struct DependencyModelHome {
    using Node = DependencyTree::Node;

    TestHome home;
    std::unique_ptr<CDependencyEditor> editor;

    DependencyModelHome() {
        Fill(16, {QStringLiteral("B"), QStringLiteral("A"), QStringLiteral("c")});
        Fill(17, {QStringLiteral("P"), QStringLiteral("Q")});
        Fill(32, {QStringLiteral("write")});
        editor = std::make_unique<CDependencyEditor>(*home.catalogue, RecordMode::Time);
        editor->Add(At(), QStringList{QStringLiteral("A"), QStringLiteral("B")});
        editor->AddAll(At("A"));
        editor->AddAll(At("A/Q"));
    }
    void Fill(int list, const QStringList& texts) {
        for (const QString& text : texts) [&] { QVERIFY(home.catalogue->AddItem(list, text, false)); }();
    }
    /// The node of a path, "A/Q", which has to be there; the root for an empty one.
    [[nodiscard]] Node& At(const QString& path) const {
        Node* node = editor->Tree().Walk(path.split(u'/', Qt::SkipEmptyParts));
        if (!node) qFatal("there is no %s", qPrintable(path));
        return *node;
    }
    [[nodiscard]] Node& At(const char* path = "") const { return At(QString::fromLatin1(path)); }
    /// "A(P Q(write)) B", as a model shows it.
    [[nodiscard]] static QString Drawn(const QAbstractItemModel& model, const QModelIndex& line) {
        QStringList children;
        for (int row = 0; row < model.rowCount(line); ++row) {
            const QModelIndex child = model.index(row, 0, line);
            const QString below = Drawn(model, child);
            children << child.data().toString() + (below.isEmpty() ? QString() : u'(' + below + u')');
        }
        return children.join(u' ');
    }
};

#pragma once

#include "lists/CDependencyEditor.h"
#include "shell/controls/AskText.h"
#include "shell/frame/ModalUser.h"
#include "shell/lists/CPulldownDepDlg.h"
#include "shell/record/DialogHome.h"

#include <QListView>
#include <QTreeView>
#include <memory>
#include <optional>

/// The dialog of dependencies over a scratch home: stored is A(P Q) B, the client C, the project R and the
/// activity write hang nowhere.
class DependencyDialogHome : public DialogHome {
 public:
    struct Rename {
        int list;
        QString oldText, newText;
    };

    DependencyDialogHome() {
        AddItems(16, {QStringLiteral("B"), QStringLiteral("A"), QStringLiteral("C")});
        AddItems(17, {QStringLiteral("P"), QStringLiteral("Q"), QStringLiteral("R")});
        AddItems(32, {QStringLiteral("write")});
        CDependencyEditor first(*home.catalogue, RecordMode::Time);
        auto& root = first.Tree().Root();
        first.Add(root, QStringList{QStringLiteral("A"), QStringLiteral("B")});
        first.Add(*root.FirstChild(), QStringList{QStringLiteral("P"), QStringLiteral("Q")});
        first.Accept();
        [&] { QVERIFY(home.catalogue->SaveTree(DependencySet::Time)); }();
    }
    void Open(RecordMode mode = RecordMode::Time) {
        dialog.reset();  // it knows the editor to its end
        editor = std::make_unique<CDependencyEditor>(*home.catalogue, mode);
        dialog = std::make_unique<CPulldownDepDlg>(
            *editor, DependencyDialogContext{
                         .catalogue = *home.catalogue,
                         .settings = *home.settings,
                         .prompt = home.prompt,
                         .renamed = [this](int list, const QString& oldText, const QString& newText) {
                             renamed.append({list, oldText, newText});
                         }});
        Show(*dialog);
    }
    [[nodiscard]] QTreeView& Tree() const { return *Find<QTreeView>("dependencyTree"); }
    [[nodiscard]] QListView& List() const { return *Find<QListView>("candidates"); }
    /// The line of a path, "A/P"; the root line for an empty one.
    [[nodiscard]] QModelIndex Line(const QString& path) const {
        QModelIndex line = Tree().model()->index(0, 0);
        for (const QString& text : path.split(u'/', Qt::SkipEmptyParts)) line = ChildOf(line, text);
        return line;
    }
    void SelectLine(const QString& path) const { Tree().setCurrentIndex(Line(path)); }
    [[nodiscard]] QString SelectedLine() const {
        const auto selected = Tree().selectionModel()->selectedIndexes();
        return selected.isEmpty() ? QString() : selected.front().data().toString();
    }
    [[nodiscard]] QStringList Candidates() const {
        QStringList texts;
        for (int row = 0; row < List().model()->rowCount(); ++row)
            texts << List().model()->index(row, 0).data().toString();
        return texts;
    }
    void SelectCandidate(const QString& text) const {
        List().setCurrentIndex(List().model()->index(static_cast<int>(Candidates().indexOf(text)), 0));
    }
    [[nodiscard]] QStringList SelectedCandidates() const {
        QStringList texts;
        for (const QModelIndex& index : List().selectionModel()->selectedRows())
            texts << index.data().toString();
        texts.sort();
        return texts;
    }
    /// "A(P Q) B", as the tree shows it.
    [[nodiscard]] QString Drawn() const { return DrawnBelow(Line({})); }
    /// A key in the widget that has the focus then: shortcuts belong to it alone.
    void Hit(const char* name, int key, Qt::KeyboardModifiers modifiers = {}) const {
        Find<QWidget>(name)->setFocus();
        Key(name, key, modifiers);
    }
    /// Answers the question for a text; nothing calls it off.
    [[nodiscard]] static ModalUser Answers(const std::optional<QString>& text, QString* label = nullptr) {
        return ModalUser([text, label](QDialog& asked) {
            if (label)
                *label = asked.findChild<QLabel*>(QStringLiteral("textFieldLabel"))->text().remove(u'&');
            auto* field = asked.findChild<QLineEdit*>(QStringLiteral("textField"));
            if (text) field->setText(*text);
            text ? asked.accept() : asked.reject();
        });
    }
    /// Which of the buttons can be pressed, by their names.
    [[nodiscard]] QStringList Offered() const {
        QStringList names;
        for (const char* name :
             {"addButton", "addAllButton", "removeButton", "expandButton", "newItemButton",
              "renameItemButton", "deleteItemButton", "renameLineButton", "deleteLineButton"})
            if (IsEnabled(name)) names << QString::fromLatin1(name).chopped(6);
        return names;
    }

    std::unique_ptr<CDependencyEditor> editor;
    std::unique_ptr<CPulldownDepDlg> dialog;
    QList<Rename> renamed;

 private:
    [[nodiscard]] static QModelIndex ChildOf(const QModelIndex& line, const QString& text) {
        for (int row = 0; row < line.model()->rowCount(line); ++row)
            if (line.model()->index(row, 0, line).data().toString() == text)
                return line.model()->index(row, 0, line);
        qFatal("no line %s", qPrintable(text));
    }
    [[nodiscard]] static QString DrawnBelow(const QModelIndex& line) {
        QStringList children;
        for (int row = 0; row < line.model()->rowCount(line); ++row) {
            const QModelIndex child = line.model()->index(row, 0, line);
            const QString below = DrawnBelow(child);
            children << child.data().toString() + (below.isEmpty() ? QString() : u'(' + below + u')');
        }
        return children.join(u' ');
    }
};

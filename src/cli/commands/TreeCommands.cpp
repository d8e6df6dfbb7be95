#include "cli/commands/TreeCommands.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/commands/ListSteps.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"
#include "lists/CDependencyEditor.h"
#include "lists/DependencyChain.h"
#include "records/StoreTransaction.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using Node = DependencyTree::Node;

void BeginNode(CJsonText& json, const Node& node) {
    json.BeginObject();
    json.Key("item");
    json.Text(node.Item()->GetText());
    json.Key("list");
    json.Integer(node.Item()->listId);
    json.Key("children");
    json.BeginArray();
}

/// Ends this node and those that end with it; the one that follows, null at the end.
const Node* EndNode(CJsonText& json, const Node& node) {
    for (const Node* ending = &node; ending->Item(); ending = ending->Parent()) {
        json.EndArray();
        json.EndObject();
        if (ending->Next()) return ending->Next();
    }
    return nullptr;
}

/// Without recursion: a stored tree may be of any depth.
void WriteJson(COutput& out, const DependencyTree& tree) {
    CJsonText json(out);
    json.BeginArray();
    const Node* node = tree.Root().FirstChild();
    while (node) {
        BeginNode(json, *node);
        node = node->FirstChild() ? node->FirstChild() : EndNode(json, *node);
    }
    json.EndArray();
    out.Put("\n");
}

void WriteLines(COutput& out, const DependencyTree& tree) {
    for (const Node* node = tree.Root().FirstChild(); node; node = DependencyTree::NextOf(*node))
        out.PutLine(QString(2 * (node->Depth() - 1), u' ') + node->Item()->GetText());
}

/// The texts of the path as the items of its lists show them.
QStringList PathOf(const CArguments& arguments, RecordMode mode) {
    QStringList path = arguments.Words().mid(1);  // the mode stands first
    for (qsizetype i = 0; i < path.size(); ++i)
        path[i] = ItemShown(NextList(mode, static_cast<int>(i)), path[i]);
    return path;
}

qsizetype CountOf(const DependencyTree& tree) {
    qsizetype count = 0;
    for (const Node* node = tree.Root().FirstChild(); node; node = DependencyTree::NextOf(*node)) ++count;
    return count;
}

ExitCode NoSuchItem(int list, const QString& text, Console& console) {
    const ListRow* row = FindRecordList(list);
    return Refuse(ExitCode::NotFound,
                  FormatText<Text::CliTreeWithoutItem>(row ? LoadText(row->title) : QString(), text),
                  console);
}

/// Stores what was edited, once. How many nodes the tree has more than before.
ExitCode Save(CDependencyEditor& editor, RecordMode mode, Console& console, RecordContext& context) {
    if (!editor.IsChanged()) return ExitCode::Done;
    editor.Accept();
    if (!context.catalogue.SaveTree(DependencySetOf(KindOf(mode))))
        return Refuse(ExitCode::Failed, LoadText(Text::CliTreeNotSaved), console);
    AnnounceLists(console, context);
    return ExitCode::Done;
}

/// What all three begin with: the mode, and everything loaded.
std::optional<RecordMode> Begin(const CArguments& arguments, Console& console, RecordContext& context,
                                ExitCode& exit) {
    const auto mode = ReadMode(arguments.Words().first(), console);
    exit = !mode ? ExitCode::Usage : ExitCode::Done;
    if (mode && std::ssize(DependencyChain(*mode)) < arguments.Words().size() - 1)
        exit = Refuse(ExitCode::Usage,
                      FormatText<Text::CliPathTooDeep>(static_cast<int>(DependencyChain(*mode).size())),
                      console);
    if (exit == ExitCode::Done && !context.catalogue.Load()) exit = ExitCode::Failed;
    return exit == ExitCode::Done ? mode : std::nullopt;
}

}  // namespace

ExitCode ShowTree(const CArguments& arguments, Console& console, RecordContext& context) {
    ExitCode exit = ExitCode::Done;
    const auto mode = Begin(arguments, console, context, exit);
    if (!mode) return exit;
    const DependencySet set = DependencySetOf(KindOf(*mode));
    if (context.catalogue.IsDamaged(set))
        return Refuse(ExitCode::Failed, LoadText(Text::CliDependenciesDamaged), console);
    const DependencyTree& tree = context.catalogue.Tree(set);
    console.out.isJson ? WriteJson(console.out, tree) : WriteLines(console.out, tree);
    return ExitCode::Done;
}

ExitCode AddToTree(const CArguments& arguments, Console& console, RecordContext& context) {
    const StoreTransaction hold(context.document.Store());
    ExitCode exit = ExitCode::Failed;
    if (!hold.IsOpen()) return exit;
    const auto mode = Begin(arguments, console, context, exit);
    if (!mode) return exit;
    CDependencyEditor editor(context.catalogue, *mode);
    const qsizetype before = CountOf(editor.Tree());
    Node* node = &editor.Tree().Root();
    for (const QString& text : PathOf(arguments, *mode)) {
        if (!node->FindChild(text) && !editor.Add(*node, text))
            return NoSuchItem(editor.NextListOf(*node), text, console);
        node = node->FindChild(text);
    }
    const qsizetype added = CountOf(editor.Tree()) - before;
    exit = Save(editor, *mode, console, context);
    if (exit == ExitCode::Done) PrintDone(console.out, "added", added);
    return exit;
}

ExitCode RemoveFromTree(const CArguments& arguments, Console& console, RecordContext& context) {
    const StoreTransaction hold(context.document.Store());
    ExitCode exit = ExitCode::Failed;
    if (!hold.IsOpen()) return exit;
    const auto mode = Begin(arguments, console, context, exit);
    if (!mode) return exit;
    CDependencyEditor editor(context.catalogue, *mode);
    const qsizetype before = CountOf(editor.Tree());
    Node* node = editor.Tree().Walk(PathOf(arguments, *mode));
    if (!node || !editor.Remove(*node))
        return Refuse(ExitCode::NotFound, FormatText<Text::CliPathUnknown>(arguments.Words().last()),
                      console);
    const qsizetype removed = before - CountOf(editor.Tree());
    exit = Save(editor, *mode, console, context);
    if (exit == ExitCode::Done) PrintDone(console.out, "removed", removed);
    return exit;
}

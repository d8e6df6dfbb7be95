#include "app/CPulldownCatalogue.h"
#include "app/DependencyBytes.h"
#include "app/ListTable.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/RecordFactory.h"

#include <utility>

// How lists, dependencies and names of fields come from the store.

/// The trees go first: they point to the items.
void CPulldownCatalogue::Forget() {
    for (TreePlace* place : {&m_tree1, &m_tree2}) {
        place->tree.Clear();
        place->state = TreePlace::State::Unread;
    }
    m_lists.Clear();
    m_labels.Clear();
    m_commandTexts.clear();
    m_extent = Extent::Incomplete;
}

bool CPulldownCatalogue::Load() {
    Forget();
    if (!LoadItems(m_store.SelectAll(RecordKind::PulldownItem))) return false;
    m_extent = Extent::Everything;
    for (const DependencySet set : kDependencySets)
        if (!LoadTree(set)) return false;
    FillLabels();
    return true;
}

bool CPulldownCatalogue::LoadLists(std::initializer_list<int> lists) {
    Forget();
    const QString table = m_store.TableName(RecordKind::PulldownItem);
    for (const int list : lists)
        if (!LoadItems(FormatText<Text::SqlSelectList>(table, list))) return false;
    m_extent = Extent::SomeLists;
    return true;
}

// --- Items

bool CPulldownCatalogue::LoadItems(const QString& statement) {
    LoadEnd end = LoadBulk(statement);
    // Over what the bulk path added: an item that is there already stays.
    if (end == LoadEnd::Failed) end = LoadRowByRow(statement);
    return end == LoadEnd::Complete;
}

CPulldownCatalogue::LoadEnd CPulldownCatalogue::LoadBulk(const QString& statement) {
    CVOSrcMgr& manager = m_store.Manager();
    if (!m_store.Query(statement) || !manager.m_recordset) return LoadEnd::Failed;
    RowTable rows;
    const bool came = manager.m_recordset->GetRows(rows);
    manager.CloseQuery();
    const std::size_t columns = FieldDefsOf(RecordKind::PulldownItem).size();
    if (!came || rows.ColumnCount() != static_cast<int>(columns)) return LoadEnd::Failed;
    m_lists.Reserve(rows.RowCount());
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        auto item = std::make_unique<CPRecord>();
        if (!item->Load(rows, row)) return LoadEnd::Failed;
        if (!Keep(std::move(item))) return LoadEnd::Stopped;
    }
    return LoadEnd::Complete;
}

CPulldownCatalogue::LoadEnd CPulldownCatalogue::LoadRowByRow(const QString& statement) {
    if (!m_store.Query(statement)) return LoadEnd::Failed;
    LoadEnd end = LoadEnd::Complete;
    while (end == LoadEnd::Complete) {
        auto item = std::make_unique<CPRecord>();
        QString id;
        if (!m_store.NextRecord(*item, id, true)) {
            if (m_store.m_lastError != 0) end = LoadEnd::Failed;
            break;
        }
        if (!Keep(std::move(item))) end = LoadEnd::Stopped;
    }
    m_store.Manager().CloseQuery();
    return end;
}

/// An item of a list that doesn't exist ends the load: which items there are would be guesswork.
bool CPulldownCatalogue::Keep(std::unique_ptr<CPRecord> item) {
    if (IsKnownList(item->listId) || IsIgnoredList(item->listId)) return m_lists.Add(std::move(item));
    return Warn(Text::StoredItemWithoutList,
                FormatText<Text::StoredItemWithoutList>(item->listId, item->GetText()));
}

// --- Dependencies

bool CPulldownCatalogue::LoadTree(DependencySet set) {
    TreePlace& place = PlaceOf(set);
    place.tree.Clear();
    place.state = TreePlace::State::Unread;
    if (m_extent != Extent::Everything) return false;
    const StoredTree stored = m_dependencies.Read(set);
    if (stored.state == StoredTree::State::Failed) return false;
    auto tree = stored.state == StoredTree::State::Damaged
                    ? std::nullopt
                    : TreeFromBytes(stored.bytes, [this](const QString& id) { return FindById(id); });
    if (!tree) {
        AskAboutDamage(set);
        return true;
    }
    place.tree = std::move(*tree);
    place.state = TreePlace::State::Sound;
    // Where the conversion can't be written, the old form stays and is converted the next time.
    if (stored.state == StoredTree::State::Old) (void)SaveTree(set);
    return true;
}

/// With No, and where the empty tree can't be written, what is stored stays, and nothing is saved over it.
void CPulldownCatalogue::AskAboutDamage(DependencySet set) {
    TreePlace& place = PlaceOf(set);
    place.state = TreePlace::State::Damaged;
    const MessageBox box{static_cast<int>(Text::AskResetTree),
                         LoadText(Text::AskResetTreeTitle),
                         LoadText(Text::AskResetTree),
                         BoxIcon::Warning,
                         Buttons::YesNo,
                         Answer::No,
                         {}};
    if (m_prompt.Ask(box) == Answer::Yes && m_dependencies.Save(set, {}))
        place.state = TreePlace::State::Sound;
}

bool CPulldownCatalogue::SaveTree(DependencySet set) {
    const TreePlace& place = PlaceOf(set);
    return place.state == TreePlace::State::Sound && m_dependencies.Save(set, TreeToBytes(place.tree));
}

// --- Names of fields

void CPulldownCatalogue::FillLabels() {
    m_labels.Clear();
    for (int field = kFirstLabel; field <= kLastLabel; ++field) {
        const ItemList* list = GetList(field);
        if (list && !list->empty()) m_labels.Set(field, list->front()->GetText());
    }
    m_labels.MarkFilled();
    m_commandTexts = MakeCommandTexts(m_labels);
}

const CommandTexts* CPulldownCatalogue::TextsOf(int command) const {
    const auto texts = m_commandTexts.constFind(command);
    return texts == m_commandTexts.constEnd() ? nullptr : &*texts;
}

#include "app/CPulldownCatalogue.h"

#include "app/DependencyBytes.h"
#include "app/ListTable.h"
#include "app/MergedTree.h"
#include "app/PaymentKinds.h"
#include "config/Settings.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/CRecordStore.h"
#include "records/NamedChange.h"
#include "records/RecordFactory.h"
#include "records/StoreTransaction.h"

#include <QSet>
#include <algorithm>
#include <utility>

CPulldownCatalogue* thePulldownCatalogue = nullptr;

namespace {

/// A coded text, the code of a kind of payment with its colon, or the word that lets every text pass a
/// filter: picked as an item, it would narrow nothing.
bool IsReserved(const QString& text) {
    return text == LoadText(Text::AnyWord) || text.startsWith(LoadText(Text::CodedPrefix)) ||
           std::ranges::any_of(PaymentKinds(), [&text](const PaymentKind& kind) {
               return text.startsWith(FormatText<Text::ReservedOpening>(LoadText(kind.code)));
           });
}

/// What an item shows that is made of this text: in a list of numbers the number's one spelling. Nothing when
/// the list doesn't take the text.
std::optional<QString> DisplayOf(int list, const QString& text) {
    if (!HoldsNumbers(list)) return text;
    float number = 0.0F;
    QString display;
    return NormaliseNumber(text, number, display) ? std::optional(display) : std::nullopt;
}

/// Sets an item's value from a text by the kind of its list.
bool SetValue(CPRecord& item, int list, const QString& text) {
    float number = 0.0F;
    QString display;
    if (!HoldsNumbers(list))
        item.SetText(text);
    else if (NormaliseNumber(text, number, display))
        item.SetNumber(number);
    else
        return false;
    return true;
}

}  // namespace

CPulldownCatalogue::CPulldownCatalogue(const Context& context)
    : m_prompt(context.prompt),
      m_settings(context.settings),
      m_store(context.manager, context.prompt, context.dataSourceName),
      m_dependencies(m_store) {}

CPulldownCatalogue::~CPulldownCatalogue() = default;

// --- Looking

QStringList CPulldownCatalogue::Texts(int list) const {
    QStringList texts;
    if (const ItemList* items = GetList(list))
        for (const CPRecord* item : *items) texts.append(item->GetText());
    return texts;
}

NewItem CPulldownCatalogue::CheckNewItem(int list, const QString& text) const {
    if (text.isEmpty() || IsReserved(text)) return NewItem::Refused;
    const std::optional<QString> display = DisplayOf(list, text);
    return display && !HasItem(list, *display) ? NewItem::Acceptable : NewItem::Refused;
}

// --- Adding and renaming

bool CPulldownCatalogue::AddItem(int list, const QString& text, bool ask) {
    CPRecord value;
    if (text.isNull() || !SetValue(value, list, text)) return false;
    if (ask && m_settings.confirmAddListItem && !Agreed(text)) return false;
    // Before it is stored: an item of no list would end every load to come.
    if (!IsKnownList(list) && !IsIgnoredList(list))
        return Warn(Text::ItemWithoutList, FormatText<Text::ItemWithoutList>(list, text));
    StoreTransaction change(m_store);
    std::unique_ptr<CPRecord> item = change.IsOpen() ? PutItem(list, text) : nullptr;
    return item && change.Commit() == CommitEnd::Durable && m_lists.Add(std::move(item));
}

/// The row of a new item, in the open transaction; null when it can't be written.
std::unique_ptr<CPRecord> CPulldownCatalogue::PutItem(int list, const QString& text) {
    auto item = std::make_unique<CPRecord>();
    if (!SetValue(*item, list, text)) return nullptr;
    item->listId = list;
    item->GenUnique();
    return m_store.InsertRecord(*item, Commit::Later) ? std::move(item) : nullptr;
}

std::vector<ListText> CPulldownCatalogue::NewAmong(const std::vector<ListText>& texts) const {
    std::vector<ListText> fresh;
    QSet<std::pair<int, QString>> taken;
    for (const ListText& one : texts) {
        if (CheckNewItem(one.list, one.text) == NewItem::Refused) continue;
        const std::pair key(one.list, DisplayOf(one.list, one.text).value_or(one.text));
        if (taken.contains(key)) continue;
        taken.insert(key);
        fresh.push_back(one);
    }
    return fresh;
}

std::optional<CPulldownCatalogue::NewItems> CPulldownCatalogue::PutItems(const std::vector<ListText>& texts) {
    QSet<int> lists;
    for (const ListText& one : texts) lists.insert(one.list);
    if (m_extent != Extent::Everything && !LoadLists(lists.values())) return std::nullopt;
    NewItems items;
    for (const auto& [list, text] : NewAmong(texts)) {
        items.push_back(PutItem(list, text));
        if (!items.back()) return std::nullopt;
    }
    return items;
}

void CPulldownCatalogue::TakeUp(NewItems items) {
    for (auto& item : items) static_cast<void>(m_lists.Add(std::move(item)));
}

bool CPulldownCatalogue::Agreed(const QString& text) const {
    const MessageBox box{static_cast<int>(Text::AskAddItem),
                         LoadText(Text::AskAddItemTitle),
                         FormatText<Text::AskAddItem>(text),
                         BoxIcon::Question,
                         Buttons::YesNo,
                         Answer::No,
                         LoadText(Text::ActionAddItem)};
    return m_prompt.Ask(box) == Answer::Yes;
}

CPRecord* CPulldownCatalogue::FindShown(int list, const QString& text) const {
    const std::optional<QString> display = DisplayOf(list, text);
    return display ? m_lists.Find(list, *display) : nullptr;
}

bool CPulldownCatalogue::RenameItem(int list, const QString& oldText, const QString& newText) {
    const Renaming renaming = StoreRenamed(list, oldText, newText);
    return renaming == Renaming::Done || (renaming == Renaming::Failed && Warn(Text::ItemNotRenamed));
}

bool CPulldownCatalogue::TryRenameItem(int list, const QString& oldText, const QString& newText) {
    return StoreRenamed(list, oldText, newText) == Renaming::Done;
}

CPulldownCatalogue::Renaming CPulldownCatalogue::StoreRenamed(int list, const QString& oldText,
                                                              const QString& newText) {
    const CPRecord* item = FindShown(list, oldText);
    if (!item) return Renaming::NotBegun;
    CPRecord value;
    StoreTransaction change(m_store);
    if (!change.IsOpen()) return Renaming::NotBegun;
    if (!SetValue(value, list, newText) || !StoreValue(*item, value) || change.Commit() != CommitEnd::Durable)
        return Renaming::Failed;
    TakeUpRenamed(list, oldText, newText);
    return Renaming::Done;
}

bool CPulldownCatalogue::PutRenamed(int list, const QString& oldText, const QString& newText) {
    const CPRecord* item = FindShown(list, oldText);
    CPRecord value;
    return item &&
           ((SetValue(value, list, newText) && StoreValue(*item, value)) || Warn(Text::ItemNotRenamed));
}

void CPulldownCatalogue::TakeUpRenamed(int list, const QString& oldText, const QString& newText) {
    CPRecord* item = FindShown(list, oldText);
    CPRecord value;
    if (item && SetValue(value, list, newText)) m_lists.SetValue(*item, value);
}

bool CPulldownCatalogue::StoreValue(const CPRecord& item, const CPRecord& value) {
    CPRecord row;
    QString id;
    if (!m_store.Query(
            FormatText<Text::SqlSelectByIdentity>(m_store.TableName(RecordKind::PulldownItem), item.GetId())))
        return false;
    const bool isThere = m_store.NextRecord(row, id, true);
    m_store.Manager().CloseQuery();
    if (!isThere) return false;
    row.valueType = value.valueType;
    row.text = value.text;
    row.number = value.number;
    return m_store.ModifyRecord(row, item.GetId(), Commit::Later);
}

// --- Deleting

bool CPulldownCatalogue::DeleteItem(int list, const QString& text) {
    const std::optional<QString> display = DisplayOf(list, text);
    if (!display || !HasItem(list, *display)) return false;
    if (!TreesAreKnown()) return Warn(Text::ItemNotDeleted);
    CPRecord* item = m_lists.Find(list, *display);  // only now: knowing the trees may have meant a load
    if (!item) return false;
    const Deleted deleted =
        DeleteStored([&] { return m_store.DeleteRecord(RecordKind::PulldownItem, item->GetId()); },
                     [item](const CPRecord& one) { return &one == item; });
    if (deleted == Deleted::No) return Warn(Text::ItemNotDeleted);
    if (deleted == Deleted::TreesRefuse) return Warn(Text::DependenciesNotSaved);
    m_lists.Remove(*item);
    return true;
}

bool CPulldownCatalogue::DeleteItems(int list, const QStringList& texts) {
    if (!TreesAreKnown()) return Warn(Text::ItemsNotDeleted);
    QSet<const CPRecord*> gone;
    for (const QString& text : texts)
        if (const CPRecord* item = FindShown(list, text)) gone.insert(item);
    if (gone.isEmpty()) return false;
    const DependencyTree::ItemTest isGone = [&gone](const CPRecord& item) { return gone.contains(&item); };
    const Deleted deleted = DeleteStored(
        [&] {
            return std::ranges::all_of(gone, [this](const CPRecord* item) {
                return m_store.DeleteRecord(RecordKind::PulldownItem, item->GetId());
            });
        },
        isGone);
    if (deleted == Deleted::No) return Warn(Text::ItemsNotDeleted);
    if (deleted == Deleted::TreesRefuse) return WarnItemsStay();
    m_lists.RemoveIf(list, isGone);
    return true;
}

bool CPulldownCatalogue::DeleteAllItems(int list) {
    if (!GetList(list)) return false;
    if (!TreesAreKnown()) return Warn(Text::ItemNotDeleted);
    const QString statement =
        FormatText<Text::SqlDeleteList>(m_store.TableName(RecordKind::PulldownItem), list);
    const Deleted deleted = DeleteStored([&] { return m_store.Query(statement); },
                                         [list](const CPRecord& item) { return item.listId == list; });
    if (deleted == Deleted::No) return false;
    if (deleted == Deleted::TreesRefuse) return WarnItemsStay();
    m_lists.RemoveAll(list);
    return true;
}

bool CPulldownCatalogue::MergeItems(int list, const QString& goneText, const QString& keptText) {
    if (!TreesAreKnown()) return Warn(Text::ItemsNotMerged);
    bool isStored = false;
    {
        StoreTransaction change(m_store);
        isStored =
            change.IsOpen() && StoreMerged(list, goneText, keptText) && change.Commit() == CommitEnd::Durable;
    }
    if (!isStored) return Warn(Text::ItemsNotMerged);
    TakeUpMerged(list, goneText, keptText);
    return true;
}

bool CPulldownCatalogue::PutMerged(int list, const QString& goneText, const QString& keptText) {
    return StoreMerged(list, goneText, keptText) || Warn(Text::ItemsNotMerged);
}

bool CPulldownCatalogue::StoreMerged(int list, const QString& goneText, const QString& keptText) {
    const CPRecord* gone = FindShown(list, goneText);
    const CPRecord* kept = FindShown(list, keptText);
    if (!gone || !kept || gone == kept || m_extent != Extent::Everything) return false;
    for (const DependencySet set : kDependencySets) {
        if (PlaceOf(set).state == TreePlace::State::Unread) return false;
        if (!HoldsItem(set, *gone)) continue;
        if (!m_dependencies.Put(set, TreeToBytes(MergedTree(Tree(set), *gone, *kept)))) return false;
    }
    return m_store.DeleteRecord(RecordKind::PulldownItem, gone->GetId());
}

void CPulldownCatalogue::TakeUpMerged(int list, const QString& goneText, const QString& keptText) {
    CPRecord* gone = FindShown(list, goneText);
    const CPRecord* kept = FindShown(list, keptText);
    if (!gone || !kept || gone == kept) return;
    for (const DependencySet set : kDependencySets)
        if (HoldsItem(set, *gone)) Tree(set) = MergedTree(Tree(set), *gone, *kept);
    m_lists.Remove(*gone);
}

bool CPulldownCatalogue::HoldsItem(DependencySet set, const CPRecord& item) const {
    return Tree(set).Holds([&item](const CPRecord& one) { return &one == &item; });
}

/// An item that goes while its tree isn't in memory would leave a stored tree behind that names an unknown
/// item: it could never be read again.
bool CPulldownCatalogue::TreesAreKnown() {
    if (m_extent == Extent::SomeLists && !Load()) return false;
    return std::ranges::all_of(kDependencySets, [this](DependencySet set) {
        return PlaceOf(set).state != TreePlace::State::Unread || LoadTree(set);
    });
}

/// The rows go and the trees that held their items are stored without them, as one change: a tree left behind
/// that names an unknown item could never be read again. Memory follows when that is done.
CPulldownCatalogue::Deleted CPulldownCatalogue::DeleteStored(const std::function<bool()>& deleteRows,
                                                             const DependencyTree::ItemTest& isGone) {
    std::vector<DependencySet> changed;
    for (const DependencySet set : kDependencySets)
        if (Tree(set).Holds(isGone)) changed.push_back(set);
    StoreTransaction change(m_store);
    if (!change.IsOpen() || !deleteRows()) return Deleted::No;
    const bool isSaved = std::ranges::all_of(
        changed, [&](DependencySet set) { return m_dependencies.Put(set, TreeToBytes(Tree(set), isGone)); });
    if (!isSaved) return Deleted::TreesRefuse;
    if (change.Commit() != CommitEnd::Durable) return Deleted::No;
    for (const DependencySet set : changed) Tree(set).RemoveIf(isGone);
    return Deleted::Done;
}

// --- Names of fields

bool CPulldownCatalogue::SetNames(const std::map<int, QString>& names) {
    if (!TreesAreKnown()) return Warn(Text::ItemNotDeleted);
    // Names have no place in a tree. Where a damaged store has one all the same, it goes by the rules of
    // trees.
    const auto isName = [&names](const CPRecord& item) { return names.contains(item.listId); };
    for (const DependencySet set : kDependencySets)
        for (const auto& [list, text] : names)
            if (Tree(set).Holds(isName) && !DeleteAllItems(list)) return false;

    std::vector<std::unique_ptr<CPRecord>> items;
    if (!StoreNames(names, items)) return false;
    for (const auto& [list, text] : names) m_lists.RemoveAll(list);
    for (auto& item : items) static_cast<void>(m_lists.Add(std::move(item)));
    FillLabels();
    return true;
}

/// Of a single field: its name as it was, and the new one.
QStringList CPulldownCatalogue::NamesOfChange(const std::map<int, QString>& names) const {
    if (names.size() != 1) return {};
    const auto& [field, name] = *names.begin();
    return {m_labels.GetLabel(field), name.isEmpty() ? FieldLabels::Default(field) : name};
}

bool CPulldownCatalogue::StoreNames(const std::map<int, QString>& names,
                                    std::vector<std::unique_ptr<CPRecord>>& items) {
    const QString table = m_store.TableName(RecordKind::PulldownItem);
    const NamedChange named(m_store, ChangeKind::Labels, NamesOfChange(names));
    StoreTransaction change(m_store);
    if (!change.IsOpen()) return false;
    for (const auto& [list, text] : names) {
        // Where memory has no name another program may have stored one since.
        if (!GetList(list) || !m_store.Query(FormatText<Text::SqlDeleteList>(table, list))) return false;
        if (text.isEmpty()) continue;
        items.push_back(std::make_unique<CPRecord>(text));
        items.back()->listId = list;
        items.back()->GenUnique();
        if (!m_store.InsertRecord(*items.back(), Commit::Later)) return false;
    }
    return change.Commit() == CommitEnd::Durable;
}

bool CPulldownCatalogue::Warn(Text id, const QString& text) const {
    m_prompt.Tell({static_cast<int>(id),
                   LoadText(Text::ListsTitle),
                   text,
                   BoxIcon::Warning,
                   Buttons::Ok,
                   Answer::Ok,
                   {}});
    return false;
}

bool CPulldownCatalogue::WarnItemsStay() const {
    return Warn(Text::DependenciesNotUpdated,
                LoadText(Text::DependenciesNotUpdated) + u' ' + LoadText(Text::ItemsStayInList));
}

bool CPulldownCatalogue::Warn(Text id) const {
    return Warn(id, LoadText(id));
}

// --- How lists, dependencies and names of fields come from the store

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
    m_version = StoreVersion();
}

/// A number that is another one as soon as another program has committed; empty when it can't be read.
QString CPulldownCatalogue::StoreVersion() {
    CVOSrcMgr& manager = m_store.Manager();
    if (!manager.Query(LoadText(Text::SqlDataVersion), false) || !manager.m_recordset) return {};
    QString version = manager.m_recordset->GetFieldValueString(0);
    manager.CloseQuery();
    return version;
}

bool CPulldownCatalogue::IsStale() {
    return m_extent == Extent::Incomplete || m_version.isEmpty() || StoreVersion() != m_version;
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

bool CPulldownCatalogue::LoadLists(const QList<int>& lists) {
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

#include "viewmodel/tree/CDataTree.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "viewmodel/tree/CTreeLeaves.h"
#include "viewmodel/tree/CTreeListener.h"
#include "viewmodel/tree/TreeTexts.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

namespace {

/// How many records ahead the memory is fetched: a walk through a million of them waits for little else.
constexpr std::size_t kAhead = 16;

quint64 KeyOf(std::uint32_t parent, std::uint32_t text) {
    return quint64{parent} << 32U | text;
}

}  // namespace

/// One level with its texts at hand.
struct CDataTree::Level {
    const TreeLevelRow* row;
    const QString* set;
    const QString* clear;

    [[nodiscard]] const QString& TextOf(const CVORec& record) const {
        if (row->timeText) return static_cast<const CTRecord&>(record).*row->timeText;
        if (row->expenseText) return static_cast<const CERecord&>(record).*row->expenseText;
        const bool isSet = row->timeFlag ? static_cast<const CTRecord&>(record).*row->timeFlag
                                         : static_cast<const CERecord&>(record).*row->expenseFlag;
        return isSet ? *set : *clear;
    }
    /// Has the memory of a record's text brought near, without looking at it.
    void Fetch(const CVORec& record) const {
        if (row->timeText) __builtin_prefetch(&(static_cast<const CTRecord&>(record).*row->timeText));
        if (row->expenseText) __builtin_prefetch(&(static_cast<const CERecord&>(record).*row->expenseText));
    }
};

CDataTree::CDataTree(CVelmarchDoc& document, const CCfgStore& settings)
    : m_document(document), m_settings(settings), m_root(std::make_unique<CTreeNode>()), m_counted(document) {
    m_root->m_text = LoadText(Text::TreeRoot);
}

CDataTree::~CDataTree() {
    FreeNodes();
}

// --- Everything anew

void CDataTree::TakeLevels() {
    m_columns = m_settings.TreeColumns().Order(HalfOf(KindOf(theRecordMode)));
    m_levels.clear();
    for (const int column : m_columns)
        if (const TreeLevelRow* row = FindTreeLevel(column))
            m_levels.push_back({row, &LoadText(row->set), &LoadText(row->clear)});
}

void CDataTree::Rebuild() {
    if (m_listener) m_listener->BeforeReset();
    FreeNodes();
    TakeLevels();
    FillAnew();
    if (m_listener) m_listener->AfterReset();
}

void CDataTree::FillAnew() {
    if (IsNarrowed()) {
        const std::vector<const CVORec*> counted =
            m_counted.TakePassing(NarrowedTo({}, FilterInForce(m_document)));
        Fill(counted.size(),
             [&counted](std::size_t place) { return place < counted.size() ? counted[place] : nullptr; });
    } else {
        m_counted.TakeVisible();
        Fill(m_document.VisiblePlaces(), [this](std::size_t place) { return m_document.VisibleAt(place); });
    }
}

/// The nodes of the lowest level are counted first; each adds its number to those above it.
template <class At>
void CDataTree::Fill(std::size_t places, const At& at) {
    if (m_levels.empty()) return;
    CTreeLeaves leaves(m_levels.size());
    std::vector<CTreeNode*> nodes;
    std::vector<std::uint32_t> numbers(m_levels.size());
    for (std::size_t place = 0; place < places; ++place) {
        if (const CVORec* later = at(place + kAhead)) {
            __builtin_prefetch(later);
            for (const Level& level : m_levels) level.Fetch(*later);
        }
        const CVORec* record = at(place);
        if (!record || !HasLevelsOf(*record)) continue;
        for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = NumberOf(m_levels[i].TextOf(*record));
        if (leaves.Count(numbers)) nodes.push_back(LeafOf(*record, numbers));
    }
    for (std::size_t leaf = 0; leaf < nodes.size(); ++leaf)
        for (CTreeNode* node = nodes[leaf]; node->m_parent; node = node->m_parent)
            node->m_count += leaves.CountOf(leaf);
}

/// The node of a record's lowest level, made with those above it where they aren't there yet, not counted.
CTreeNode* CDataTree::LeafOf(const CVORec& record, const std::vector<std::uint32_t>& numbers) {
    CTreeNode* node = m_root.get();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        CTreeNode* child = ChildOf(*node, numbers[i]);
        node = child ? child : AppendChild(*node, m_levels[i].TextOf(record), numbers[i]);
    }
    return node;
}

void CDataTree::Clear() {
    if (m_listener) m_listener->BeforeReset();
    FreeNodes();
    m_counted.Clear();
    if (m_listener) m_listener->AfterReset();
}

void CDataTree::FreeNodes() {
    for (CTreeNode* node : std::as_const(m_nodes)) delete node;
    m_nodes.clear();
    if (m_gathered) m_gathered->clear();
    m_texts.clear();
    m_known = {};
    m_root->m_children.clear();
    m_root->m_isSorted = true;
    m_nextNode = 1;
}

// --- One record

bool CDataTree::HasLevelsOf(const CVORec& record) const {
    return !m_columns.empty() && HalfOf(m_columns.front()) == HalfOf(record.Kind());
}

void CDataTree::AddRecord(const CVORec& record) {
    if (!HasLevelsOf(record)) return;
    CTreeNode* node = m_root.get();
    for (const Level& level : m_levels) {
        const QString& text = level.TextOf(record);
        const std::uint32_t number = NumberOf(text);
        CTreeNode* child = ChildOf(*node, number);
        const bool isNew = !child;
        if (isNew) child = InsertChild(*node, text, number);
        ++child->m_count;
        if (!isNew)
            TellCount(*child);
        else if (m_listener)
            m_listener->AfterInsert(*child);
        node = child;
    }
}

void CDataTree::RemoveRecord(const CVORec& record) {
    if (!HasLevelsOf(record)) return;
    CTreeNode* node = m_root.get();
    for (const Level& level : m_levels) {
        CTreeNode* child = ChildOf(*node, NumberOf(level.TextOf(record)));
        if (!child) continue;
        if (child->m_count <= 1) return RemoveChild(*child);
        --child->m_count;
        TellCount(*child);
        node = child;
    }
}

std::uint32_t CDataTree::NumberOf(const QString& text) {
    return m_known.Get(text, [&] {
        const auto number = m_texts.constFind(text);
        return number != m_texts.cend() ? *number
                                        : *m_texts.insert(text, static_cast<std::uint32_t>(m_texts.size()));
    });
}

// --- Nodes

CTreeNode* CDataTree::ChildOf(const CTreeNode& parent, std::uint32_t textNumber) const {
    return m_nodes.value(KeyOf(parent.m_number, textNumber));
}

CTreeNode* CDataTree::MakeChild(CTreeNode& parent, const QString& text, std::uint32_t textNumber) {
    auto* node = new CTreeNode;
    node->m_text = text;
    node->m_parent = &parent;
    node->m_number = m_nextNode++;
    node->m_textNumber = textNumber;
    m_nodes.insert(KeyOf(parent.m_number, textNumber), node);
    return node;
}

/// Where many come at once: each isn't announced, and they are sorted later.
CTreeNode* CDataTree::AppendChild(CTreeNode& parent, const QString& text, std::uint32_t textNumber) {
    CTreeNode* node = MakeChild(parent, text, textNumber);
    parent.m_isSorted = parent.m_children.empty();
    parent.m_children.push_back(node);
    return node;
}

CTreeNode* CDataTree::InsertChild(CTreeNode& parent, const QString& text, std::uint32_t textNumber) {
    CTreeNode* node = MakeChild(parent, text, textNumber);
    const std::size_t place = parent.PlaceOf(text);
    if (m_listener) m_listener->BeforeInsert(parent, static_cast<int>(place));
    parent.m_children.insert(parent.m_children.begin() + static_cast<std::ptrdiff_t>(place), node);
    return node;
}

void CDataTree::RemoveChild(CTreeNode& node) {
    CTreeNode& parent = *node.m_parent;
    const std::size_t place = parent.PlaceOf(node.m_text);
    if (m_listener) m_listener->BeforeRemove(node);
    parent.m_children.erase(parent.m_children.begin() + static_cast<std::ptrdiff_t>(place));
    Free(&node);
    if (m_listener) m_listener->AfterRemove(parent);
}

void CDataTree::Free(CTreeNode* node) {
    for (CTreeNode* child : node->m_children) Free(child);
    m_nodes.remove(KeyOf(node->m_parent->m_number, node->m_textNumber));
    if (m_gathered) m_gathered->remove(node);
    delete node;
}

// --- The chosen node

const TreePath& CDataTree::Chosen() const {
    return m_chosen[theRecordMode == RecordMode::Time ? 0 : 1];
}

/// A filter that was changed since, or a path through columns that are no levels any more, leaves nothing of
/// the choice: then the filter is one like any other.
bool CDataTree::IsNarrowed() const {
    const TreePath& chosen = Chosen();
    if (chosen.empty() || chosen.size() > m_columns.size()) return false;
    for (std::size_t i = 0; i < chosen.size(); ++i)
        if (chosen[i].column != m_columns[i]) return false;
    const NodeFilter filter = FilterInForce(m_document);
    return filter == NarrowedTo(chosen, filter);
}

const CTreeNode* CDataTree::Shown() const {
    if (!IsNarrowed()) return IsOfRoot(FilterInForce(m_document)) ? m_root.get() : nullptr;
    QStringList texts;
    for (const TreeStep& step : Chosen()) texts.append(step.text);
    return Find(texts);
}

void CDataTree::Choose(const CTreeNode& node) {
    if (&node == Shown()) return;
    TreePath path = StepsTo(node);
    if (m_counted.IsOutdated()) Rebuild();
    const NodeFilter before = FilterInForce(m_document);
    PutInForce(NarrowedTo(path, before), m_document);
    m_chosen[theRecordMode == RecordMode::Time ? 0 : 1] = std::move(path);
    m_document.BuildVisible();
    m_counted.OnNarrowed(before);
    const QScopedValueRollback choosing(m_isChoosing, true);
    m_document.NotifyViews(Hint::Rebuild);
}

// --- Hints

/// The count of a client's node changes with each of its records: the view is told once.
template <class Work>
void CDataTree::AsBatch(qsizetype records, const Work& work) {
    if (records > 1) m_gathered.emplace();
    work();
    const auto gathered = std::exchange(m_gathered, std::nullopt);
    if (!gathered || !m_listener) return;
    for (const CTreeNode* node : *gathered) m_listener->CountChanged(*node);
}

void CDataTree::TellCount(CTreeNode& node) {
    if (m_gathered)
        m_gathered->insert(&node);
    else if (m_listener)
        m_listener->CountChanged(node);
}

void CDataTree::OnHint(Hint hint, const QStringList& ids) {
    if (m_isChoosing) return;
    // Other records are visible than those that were counted, and no hint has said so.
    if (!ids.isEmpty() && m_counted.IsOutdated()) Rebuild();
    switch (hint) {
        case Hint::Added:
        case Hint::Changed:
        case Hint::Deleted:
            AsBatch(ids.size(), [&] { CountIn(hint, ids); });
            break;
        case Hint::AboutToGo:
        case Hint::AboutToChange:
            AsBatch(ids.size(), [&] {
                for (const QString& id : ids) CountOut(id);
            });
            break;
        case Hint::Rebuild:
            Rebuild();
            break;
        case Hint::Clear:
            Clear();
            break;
        default:
            break;
    }
}

/// A record that only went out of the list's sight is counted again. One that was changed without a hint
/// before can't be counted out any more: then everything is counted anew.
void CDataTree::CountIn(Hint hint, const QStringList& ids) {
    for (const QString& id : ids) {
        const CVORec* record = m_counted.Find(id);
        if (!record || !m_counted.Wants(*record)) continue;
        if (m_counted.MayHave(id, hint)) return Rebuild();
        m_counted.Note(id, true);
        AddRecord(*record);
    }
}

void CDataTree::CountOut(const QString& id) {
    const CVORec* record = m_counted.Find(id);
    if (!record) return;
    const bool isCounted = m_counted.Has(*record);
    m_counted.Note(id, false);
    if (isCounted) RemoveRecord(*record);
}

// --- Paths

QStringList CDataTree::PathOf(const CTreeNode& node) {
    QStringList path;
    for (const CTreeNode* step = &node; step->m_parent; step = step->m_parent) path.prepend(step->m_text);
    return path;
}

TreePath CDataTree::StepsTo(const CTreeNode& node) const {
    TreePath steps;
    const QStringList texts = PathOf(node);
    for (qsizetype i = 0; i < texts.size(); ++i)
        steps.push_back({m_columns[static_cast<std::size_t>(i)], texts[i]});
    return steps;
}

const CTreeNode* CDataTree::Find(const QStringList& path) const {
    const CTreeNode* node = m_root.get();
    for (const QString& text : path) {
        const auto number = m_texts.constFind(text);
        node = number == m_texts.cend() ? nullptr : ChildOf(*node, *number);
        if (!node) return nullptr;
    }
    return node;
}

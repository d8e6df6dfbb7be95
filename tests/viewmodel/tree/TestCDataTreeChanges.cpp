#include "records/RecordFactory.h"
#include "support/TestProgram.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/tree/CTreeListener.h"
#include "viewmodel/tree/DataTreeFixture.h"
#include "viewmodel/tree/TreeTexts.h"

#include <QTest>
#include <algorithm>
#include <array>
#include <memory>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Follows a tree by what it is told alone.
class Mirror final : public CTreeListener {
 public:
    explicit Mirror(CDataTree& tree) : m_tree(tree) {
        tree.SetListener(this);
        AfterReset();
    }
    void BeforeReset() override { m_top = {}; }
    void AfterReset() override { m_top = Copy(m_tree.Root()); }
    void BeforeInsert(const CTreeNode& parent, int row) override {
        m_parent = &At(parent);
        m_row = row;
        QCOMPARE(static_cast<int>(m_parent->below.size()), parent.ChildCount());
    }
    void AfterInsert(const CTreeNode& node) override {
        QCOMPARE(node.Row(), m_row);
        m_parent->below.insert(m_parent->below.begin() + m_row, Copy(node));
    }
    void BeforeRemove(const CTreeNode& node) override {
        Node& parent = At(*node.Parent());
        parent.below.erase(parent.below.begin() + node.Row());
    }
    void AfterRemove(const CTreeNode& parent) override {
        QCOMPARE(static_cast<int>(At(parent).below.size()), parent.ChildCount());
    }
    void CountChanged(const CTreeNode& node) override {
        At(node).count = node.Count();
        ++counts;
    }

    int counts = 0;  ///< how often one was told

    [[nodiscard]] QString Words() const { return Words(m_top); }

 private:
    struct Node {
        QString text;
        int count = 0;
        std::vector<Node> below;
    };
    static Node Copy(const CTreeNode& node) {
        Node copy{node.Text(), node.Count(), {}};
        for (const CTreeNode* child : node.Children()) copy.below.push_back(Copy(*child));
        return copy;
    }
    static QString Words(const Node& node) {
        QStringList words;
        for (const Node& child : node.below) {
            const QString below = Words(child);
            words.append(u"%1 %2"_s.arg(child.text).arg(child.count) +
                         (below.isEmpty() ? QString() : u" [%1]"_s.arg(below)));
        }
        return words.join(u", "_s);
    }
    Node& At(const CTreeNode& node) {
        return node.Parent() ? At(*node.Parent()).below[static_cast<std::size_t>(node.Row())] : m_top;
    }

    CDataTree& m_tree;
    Node m_top;
    Node* m_parent = nullptr;
    int m_row = 0;
};

/// A user, the commands of the window and another program, who change records at random, the same each time.
class Changer {
 public:
    explicit Changer(unsigned seed) : m_random(seed) {
        m_fixture.document.SetTimers(&m_timers);
        for (const ColumnHalf half : {ColumnHalf::Time, ColumnHalf::Expense}) ShowColumns(half);
        m_fixture.Rebuild();
    }
    ~Changer() { m_fixture.document.SetTimers(nullptr); }
    Changer(const Changer&) = delete;
    Changer& operator=(const Changer&) = delete;

    DataTreeFixture& Fixture() { return m_fixture; }

    /// Any change there is.
    void Change() {
        switch (Pick(14)) {
            case 0:
                return SwitchMode();
            case 1:
                ShowColumns(HalfOf(Kind()));
                return m_fixture.Rebuild();
            case 2:
                return ChangeFilter();
            case 3:
            case 4:
                return ChangeTimer();
            case 5:
                return Pick(2) == 0 ? AddElsewhere() : ChangeElsewhere();
            default:
                return ChangeRecord();
        }
    }
    /// A change of a record that is in sight, or a new one.
    void ChangeRecord() {
        const QString id = AnyId();
        if (id.isEmpty()) return AddRecord();
        switch (Pick(7)) {
            case 0:
            case 1:
                return Modify(id);
            case 2:
                return Mark(id);
            case 3:
                QVERIFY(m_fixture.document.DeleteRecord(Kind(), id, Notify::Yes));
                return;
            case 4:
                return DeleteSelected(id);
            default:
                return AddRecord();
        }
    }
    /// Another program changes or deletes a record, in sight or not.
    void ChangeElsewhere() {
        const QStringList& ids = m_ids[Place()];
        if (ids.isEmpty()) return;
        const QString id = ids[Pick(static_cast<int>(ids.size()))];
        if (!m_fixture.document.FindRecord(id)) return;
        QVERIFY(Pick(3) == 0 ? m_fixture.home.store->DeleteRecord(Kind(), id)
                             : m_fixture.home.store->ModifyRecord(*NewRecordOf(id), id, Commit::Later));
        QVERIFY(m_fixture.document.RefreshRecords(Kind(), {id}));
    }
    /// Another program adds a record.
    void AddElsewhere() {
        const std::unique_ptr<CVORec> record = NewRecordOf({});
        QVERIFY(m_fixture.home.store->InsertRecord(*record, Commit::Later));
        m_ids[Place()] << record->GetId();
        QVERIFY(m_fixture.document.RefreshRecords(Kind(), {record->GetId()}));
    }
    /// Any node, or the root.
    const CTreeNode& AnyNode() {
        const CTreeNode* node = &m_fixture.tree.Root();
        while (node->ChildCount() > 0 && Pick(3) != 0)
            node = node->Children()[static_cast<std::size_t>(Pick(node->ChildCount()))];
        return *node;
    }

 private:
    static RecordKind Kind() { return KindOf(theRecordMode); }
    static std::size_t Place() { return theRecordMode == RecordMode::Time ? 0 : 1; }
    int Pick(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    QString AnyText() {
        static const QString texts[] = {QString(), u"x"_s, u"y"_s, u"X"_s, u"A"_s, u"B"_s};
        return texts[Pick(6)];
    }
    /// Visible and of the mode; empty when there is none.
    QString AnyId() {
        QStringList visible;
        m_fixture.document.ForEachVisible([&visible](const CVORec& record) { visible << record.GetId(); });
        visible.sort();
        return visible.isEmpty() ? QString() : visible[Pick(static_cast<int>(visible.size()))];
    }
    /// With texts and flags at random; an empty identity gives a new one.
    std::unique_ptr<CVORec> NewRecordOf(const QString& id) {
        std::unique_ptr<CVORec> record = NewRecord(Kind());
        if (id.isEmpty())
            record->GenUnique();
        else
            record->SetId(id);
        for (const TreeLevelRow& level : TreeLevels()) {
            if (HalfOf(level.column) != HalfOf(Kind())) continue;
            if (level.timeText) static_cast<CTRecord&>(*record).*level.timeText = AnyText();
            if (level.timeFlag) static_cast<CTRecord&>(*record).*level.timeFlag = Pick(2) == 0;
            if (level.expenseText) static_cast<CERecord&>(*record).*level.expenseText = AnyText();
            if (level.expenseFlag) static_cast<CERecord&>(*record).*level.expenseFlag = Pick(2) == 0;
        }
        return record;
    }

    void AddRecord() {
        const bool isAnnounced = Pick(2) == 0;
        m_ids[Place()] << m_fixture.Add(*NewRecordOf({}), isAnnounced);
        if (!isAnnounced) m_fixture.document.FlushPending(Hint::Added);
    }
    void Modify(const QString& id) {
        QVERIFY(m_fixture.document.ModifyRecord(*NewRecordOf(id), id, {Notify::Yes, Commit::Later}));
    }
    /// As the command for marks: announced before by the command, flushed after it.
    void Mark(const QString& id) {
        m_fixture.document.NotifyViews(Hint::AboutToChange, {id});
        QVERIFY(m_fixture.document.ModifyRecord(*NewRecordOf(id), id, {Notify::Later, Commit::Later}));
        m_fixture.document.FlushPending(Hint::Changed);
    }
    void DeleteSelected(const QString& id) {
        m_fixture.document.NotifyViews(Hint::AboutToGo, {id});
        QVERIFY(m_fixture.document.DeleteRecord(Kind(), id, Notify::Later));
        m_fixture.document.FlushPending(Hint::Deleted);
    }
    void SwitchMode() {
        const bool toExpenses = theRecordMode == RecordMode::Time;
        m_fixture.document.SwitchMode(toExpenses ? RecordMode::Expense : RecordMode::Time);
    }
    /// None up to three of the columns that can be levels, in any order.
    void ShowColumns(ColumnHalf half) {
        std::vector<int> columns;
        for (const TreeLevelRow& level : TreeLevels())
            if (HalfOf(level.column) == half) columns.push_back(level.column);
        std::shuffle(columns.begin(), columns.end(), m_random);
        columns.resize(static_cast<std::size_t>(Pick(4)));
        m_fixture.home.settings->TreeColumns().ShowExactly(half, columns);
    }
    void ChangeFilter() {
        CVelmarchDoc& document = m_fixture.document;
        document.Filter().Reset();
        document.FilterOfExpenses().Reset();
        const auto item = static_cast<std::size_t>(Pick(5));
        switch (Pick(4)) {
            case 0:
                document.Filter().items[item] = AnyText();
                document.FilterOfExpenses().items[item] = AnyText();
                break;
            case 1:
                document.Filter().timer = Pick(2);
                document.FilterOfExpenses().flags[item] = Pick(2);
                break;
            case 2:
                document.Filter().billable = Pick(2);
                document.FilterOfExpenses().distance = Pick(2);
                break;
            default:
                break;
        }
        m_fixture.Rebuild();
    }
    /// A timer starts or stops; a stop writes into the record.
    void ChangeTimer() {
        const QString id = AnyId();
        if (id.isEmpty() || theRecordMode != RecordMode::Time) return ChangeElsewhere();
        if (m_timers.HasTimer(id)) {
            m_fixture.home.clock.Advance(60);
            m_timers.FoldAndStore();
            QVERIFY(m_timers.StopRecordTimer(id));
        } else {
            QVERIFY(m_timers.StartRecordTimer(id));
        }
    }

    std::mt19937 m_random;
    DataTreeFixture m_fixture{""};
    ActiveTimerSet m_set{m_fixture.home.clock};
    CRecordTimers m_timers{m_set, m_fixture.document, *m_fixture.home.settings};
    std::array<QStringList, 2> m_ids;  ///< of all that were added, by mode
};

}  // namespace

/// Whatever happens to the records, hints alone keep the tree right.
class TestCDataTreeChanges final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    /// Four records of one client go: its count is told once, and their projects' nodes go one by one.
    void aBatchTellsEachCountOnce() {
        DataTreeFixture fixture;
        QStringList ids;
        for (const char* project : {"x", "y", "z", "z"}) ids.append(fixture.Add("A", project));
        fixture.Add("A", "z");
        Mirror mirror(fixture.tree);
        fixture.document.NotifyViews(Hint::AboutToGo, ids);
        QCOMPARE(mirror.counts, 2);  // of A and of z below it
        QCOMPARE(mirror.Words(), u"A 1 [z 1]"_s);
        QCOMPARE(fixture.Tree(), u"A 1 [z 1]"_s);
    }

    void hintsKeepTheTreeRight_data() { Seeds(); }
    /// After every change the tree is what a rebuild would make, and every listener knows it. Records
    /// of both modes come, change and go, by the user, in batches and by another program; timers start and
    /// stop; filters, the timers' among them, and the columns of the levels change.
    void hintsKeepTheTreeRight() {
        QFETCH(unsigned, seed);
        Changer changer(seed);
        DataTreeFixture& fixture = changer.Fixture();
        const Mirror mirror(fixture.tree);
        for (int change = 0; change < 200; ++change) {
            changer.Change();
            QCOMPARE(fixture.Tree(), fixture.Rebuilt());
            QCOMPARE(mirror.Words(), fixture.Tree());
        }
        fixture.tree.SetListener(nullptr);
    }

    void aNodeAsTheFilter_data() { Seeds(); }
    /// A node narrows the list and the tree stays: what happens meanwhile to the records in sight and, in
    /// another program, to any is counted, so that the tree is right when the root shows all of them again.
    void aNodeAsTheFilter() {
        QFETCH(unsigned, seed);
        Changer changer(seed);
        DataTreeFixture& fixture = changer.Fixture();
        fixture.home.settings->TreeColumns().ShowExactly(ColumnHalf::Time, {4, 13, 5});
        fixture.Rebuild();
        const Mirror mirror(fixture.tree);
        for (int selection = 0; selection < 40; ++selection) {
            fixture.tree.Choose(changer.AnyNode());
            for (int change = 0; change < 3; ++change) {
                changer.ChangeRecord();
                changer.ChangeElsewhere();
                changer.AddElsewhere();
            }
            const QString counted = fixture.Tree();
            QCOMPARE(mirror.Words(), counted);
            fixture.Rebuild();
            QCOMPARE(fixture.Tree(), counted);
            fixture.tree.Choose(fixture.tree.Root());
            QCOMPARE(fixture.Tree(), counted);
            QCOMPARE(fixture.Rebuilt(), counted);
        }
        fixture.tree.SetListener(nullptr);
    }

 private:
    static void Seeds() {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 20; ++seed) QTest::addRow("seed %u", seed) << seed;
    }
};

TEST_CLASS(TestCDataTreeChanges);
#include "TestCDataTreeChanges.moc"

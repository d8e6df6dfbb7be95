#include "viewmodel/fields/CLabelModel.h"

#include "app/CPulldownCatalogue.h"
#include "lang/LoadText.h"
#include "lists/LabelSets.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The names of fields as a table.
class TestCLabelModel final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    std::unique_ptr<CLabelEditor> editor;
    std::unique_ptr<CLabelModel> model;

    void Make(RecordMode mode) {
        editor = std::make_unique<CLabelEditor>(*home->catalogue);
        model = std::make_unique<CLabelModel>(mode, home->catalogue->Labels(), *editor);
    }
    [[nodiscard]] QString Shown(int row, int column) const {
        return model->index(row, column).data().toString();
    }
    [[nodiscard]] bool IsDefault(int row, int column) const {
        return model->index(row, column).data(CLabelModel::kIsDefaultRole).toBool();
    }

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        Make(RecordMode::Time);
    }
    void cleanup() {
        model.reset();
        editor.reset();
        home.reset();
    }

    void KeepsTheRulesOfModels() {
        QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        QVERIFY(model->setData(model->index(0, 2), u"Patient"_s));
        model->ShowAll();
    }

    void Rows_data() {
        QTest::addColumn<RecordMode>("mode");
        QTest::addColumn<QString>("header");
        QTest::addColumn<QString>("fields");
        QTest::newRow("time")
            << RecordMode::Time << u"Field of time records"_s
            << u"Client Project Activity Cost centre Rate Currency Amount Notes Billable Billed"_s;
        QTest::newRow("expenses")
            << RecordMode::Expense << u"Field of expenses"_s
            << u"Client Project Description Payment Currency Amount Notes Billable Billed "
               "Reimbursable Reimbursed Personal"_s;
    }
    void Rows() {
        QFETCH(RecordMode, mode);
        Make(mode);
        QStringList fields;
        for (int row = 0; row < model->rowCount(); ++row) fields << Shown(row, 0);
        QTEST(fields.join(u' '), "fields");
        const auto header = [this](int section) {
            return model->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
        };
        QTEST(header(0), "header");
        QCOMPARE(header(1), u"List heading"_s);
        QCOMPARE(header(2), u"Field name"_s);
        QVERIFY(!model->headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
    }

    /// A cell without a name of the user shows what is in force, in another colour, and is empty to edit.
    void DefaultsAreShownAsSuch() {
        QCOMPARE(Shown(0, 2), u"Client"_s);
        QVERIFY(IsDefault(0, 2));
        QVERIFY(!IsDefault(0, 0));
        QCOMPARE(model->index(0, 2).data(Qt::EditRole).toString(), QString());
        QCOMPARE(model->index(0, 2).data(Qt::AccessibleTextRole).toString(), u"Client, default name"_s);
        QVERIFY(model->setData(model->index(0, 2), u"Patient"_s));
        QCOMPARE(Shown(0, 2), u"Patient"_s);
        QVERIFY(!IsDefault(0, 2));
        QVERIFY(IsDefault(0, 1));
        QCOMPARE(model->index(0, 2).data(Qt::EditRole).toString(), u"Patient"_s);
        QCOMPARE(model->index(0, 2).data(Qt::AccessibleTextRole).toString(), u"Patient, your own name"_s);
        QCOMPARE(model->index(0, 0).data(Qt::AccessibleTextRole).toString(), u"Client"_s);
    }

    /// Each column stores under the number of its form: the heading 101, the field 111.
    void EnteredNamesAreStoredAtOnce() {
        QVERIFY(model->setData(model->index(2, 1), u"Tasks"_s));
        QVERIFY(model->setData(model->index(2, 2), u"Task"_s));
        QVERIFY(editor->IsChanged());
        TestHome next(home->Path());
        QCOMPARE(next.catalogue->Labels().Own(101), u"Tasks"_s);
        QCOMPARE(next.catalogue->Labels().Own(111), u"Task"_s);
    }
    void ClearedNamesFallBackToTheDefault() {
        QVERIFY(model->setData(model->index(0, 2), u"Patient"_s));
        QVERIFY(model->setData(model->index(0, 2), QString()));
        QCOMPARE(Shown(0, 2), u"Client"_s);
        QVERIFY(IsDefault(0, 2));
        TestHome next(home->Path());
        QCOMPARE(next.catalogue->Labels().Own(109), QString());
    }
    void NothingIsStoredOfWhatIsTheSame() {
        QVERIFY(model->setData(model->index(0, 2), QString()));
        QVERIFY(!editor->IsChanged());
        QVERIFY(model->setData(model->index(0, 2), u"Patient"_s));
        CLabelEditor second(*home->catalogue);
        CLabelModel other(RecordMode::Time, home->catalogue->Labels(), second);
        QVERIFY(other.setData(other.index(0, 2), u"Patient"_s));
        QVERIFY(!second.IsChanged());
    }
    void TheCellIsSaidToBeAnother() {
        const QSignalSpy changed(model.get(), &CLabelModel::dataChanged);
        QVERIFY(model->setData(model->index(4, 1), u"Fees"_s));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.front().front().toModelIndex(), model->index(4, 1));
    }
    void NamesThatCannotBeStoredAreNotShown() {
        QVERIFY(model->setData(model->index(0, 2), u"Patient"_s));
        home->prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!model->setData(model->index(0, 2), QString(256, u'x')));
        QCOMPARE(Shown(0, 2), u"Patient"_s);
    }
    void WhatCanBeEdited() {
        QVERIFY(!(model->flags(model->index(0, 0)) & Qt::ItemIsEditable));
        QVERIFY(model->flags(model->index(0, 1)) & Qt::ItemIsEditable);
        QVERIFY(model->flags(model->index(9, 2)) & Qt::ItemIsEditable);
        QVERIFY(!model->setData(model->index(0, 0), u"x"_s));
        QVERIFY(!model->setData(model->index(0, 2), u"x"_s, Qt::DisplayRole));
        QVERIFY(!model->setData({}, u"x"_s));
        QVERIFY(!editor->IsChanged());
        QVERIFY(!model->data({}, Qt::DisplayRole).isValid());
    }
    void ManyNamesAtOnce() {
        QVERIFY(editor->ApplyPreset(1));
        const QSignalSpy changed(model.get(), &CLabelModel::dataChanged);
        model->ShowAll();
        QCOMPARE(changed.front().at(0).toModelIndex(), model->index(0, 0));
        QCOMPARE(changed.front().at(1).toModelIndex(), model->index(9, 2));
        QCOMPARE(Shown(1, 1), u"Matters"_s);
        QCOMPARE(Shown(1, 2), u"Matter"_s);
    }
};

TEST_CLASS(TestCLabelModel);
#include "TestCLabelModel.moc"

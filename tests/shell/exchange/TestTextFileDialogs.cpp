#include "shell/exchange/CDelimiterDialog.h"
#include "shell/exchange/CPostProcessingDialog.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The dialogs of text files.
class TestTextFileDialogs final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

    [[nodiscard]] CDelimiterDialog::Context ContextOf(TextFilePurpose purpose,
                                                      const CDelimiterDialog::Preview& preview = {}) const {
        return {.purpose = purpose, .prompt = home->prompt, .profile = *home->profile, .preview = preview};
    }
    static QComboBox& Combo(const QDialog& dialog, const QString& name) {
        return *dialog.findChild<QComboBox*>(name);
    }

 private Q_SLOTS:
    void init() { home = std::make_unique<TestHome>(); }
    void cleanup() { home.reset(); }

    void whatIsChosen() {
        CDelimiterDialog dialog(ContextOf(TextFilePurpose::Export), {PresetDelimiters()});
        QVERIFY(dialog.GetDraft().delimiters == PresetDelimiters());
        QVERIFY(!dialog.findChild<QCheckBox*>(u"addListItems"_s));
        Combo(dialog, u"separator"_s).setCurrentText(LoadText(Text::DelimiterTabName));
        Combo(dialog, u"qualifier"_s).setCurrentText(LoadText(Text::DelimiterNone));
        Combo(dialog, u"lineEnd"_s).setCurrentText(u"|x"_s);
        QCOMPARE(dialog.GetDraft().delimiters, (Delimiters{{}, u"\t"_s, u"|"_s}));
        QCOMPARE(dialog.findChild<QLabel*>(u"sample"_s)->text(), SampleOf(dialog.GetDraft().delimiters));
        dialog.accept();
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    }

    void refusals_data() {
        QTest::addColumn<QString>("combo");
        QTest::addColumn<QString>("entry");
        QTest::addColumn<Text>("told");
        QTest::newRow("no line end") << u"lineEnd"_s << QString() << Text::DelimiterNoLineEnd;
        QTest::newRow("two bytes") << u"separator"_s << u"§"_s << Text::DelimiterTooWide;
        QTest::newRow("an unknown encoding") << u"encoding"_s << u"klingon"_s << Text::EncodingUnknown;
    }
    void refusals() {
        QFETCH(QString, combo);
        QFETCH(QString, entry);
        QFETCH(Text, told);
        CDelimiterDialog dialog(ContextOf(TextFilePurpose::Export), {PresetDelimiters()});
        Combo(dialog, combo).setCurrentText(entry);
        home->prompt.ExpectTold(told);
        dialog.accept();
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
        home->prompt.Finish();
    }

    void neitherQualifierNorSeparator() {
        CDelimiterDialog dialog(ContextOf(TextFilePurpose::Export), {PresetDelimiters()});
        Combo(dialog, u"separator"_s).setCurrentText(QString());
        Combo(dialog, u"qualifier"_s).setCurrentText(QString());
        home->prompt.ExpectTold(Text::DelimitersBothEmpty);
        dialog.accept();
        home->prompt.Finish();
    }

    void thePreviewFollows() {
        QString separator;
        CDelimiterDialog dialog(ContextOf(TextFilePurpose::ImportRecords,
                                          [&separator](const TextFileDraft& draft) {
                                              separator = draft.delimiters.separator;
                                              return ImportPreview{.heads = {u"Date"_s, u"Start"_s},
                                                                   .rows = {{u"1/1/2026"_s, separator}},
                                                                   .refused = {u"Line 2"_s},
                                                                   .misread = {u"Line 3"_s},
                                                                   .counts = u"counts"_s,
                                                                   .encoding = "utf-8"};
                                          }),
                                {PresetDelimiters()});
        QCOMPARE(separator, u","_s);
        Combo(dialog, u"separator"_s).setCurrentText(u";"_s);
        QCOMPARE(separator, u";"_s);
        auto* table = dialog.findChild<QTableWidget*>(u"preview"_s);
        QCOMPARE(table->columnCount(), 2);
        QCOMPARE(table->item(0, 1)->text(), u";"_s);
        QCOMPARE(table->horizontalHeaderItem(0)->text(), u"Date"_s);
        QCOMPARE(dialog.findChild<QListWidget*>(u"refused"_s)->count(), 2);
        QVERIFY(dialog.findChild<QCheckBox*>(u"addListItems"_s)->isChecked());
        QVERIFY(dialog.GetDraft().encoding.isEmpty());
    }

    // --- What follows an export

    void theMarkedChoiceStands() {
        CPostProcessingDialog dialog(3, u"file"_s, *home->profile);
        QVERIFY(dialog.Choice() == AfterExport::Nothing);
        dialog.findChild<QRadioButton*>(u"markChoice"_s)->click();
        dialog.reject();
        QVERIFY(dialog.Choice() == AfterExport::Mark);
        // noted at once, and offered the next time
        QVERIFY(CPostProcessingDialog(1, u"file"_s, *home->profile).Choice() == AfterExport::Mark);
    }

    void deletingIsNeverThePreset() {
        CPostProcessingDialog dialog(3, u"file"_s, *home->profile);
        dialog.findChild<QRadioButton*>(u"deleteChoice"_s)->click();
        QVERIFY(dialog.Choice() == AfterExport::Delete);
        QVERIFY(CPostProcessingDialog(1, u"file"_s, *home->profile).Choice() == AfterExport::Nothing);
    }
};

TEST_CLASS(TestTextFileDialogs);
#include "TestTextFileDialogs.moc"

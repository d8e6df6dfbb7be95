#include "shell/options/ListFontDialog.h"

#include "lang/LoadText.h"
#include "shell/frame/ModalUser.h"
#include "support/TestProgram.h"

#include <QAccessible>
#include <QComboBox>
#include <QFont>
#include <QFontDialog>
#include <QLineEdit>
#include <QListView>

using namespace Qt::Literals::StringLiterals;

class TestListFontDialog final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void Record() {
        QFont font(u"Some Face"_s);
        font.setPointSizeF(10.5);
        font.setWeight(QFont::Bold);
        font.setItalic(true);
        const std::optional<FontRecord> record = FontRecordOf(font);
        QVERIFY(record);
        QCOMPARE(record->face, u"Some Face"_s);
        QCOMPARE(record->tenthsOfPoint, 105);
        QCOMPARE(record->weight, 700);
        QVERIFY(record->italic);
        FontRecord read;
        QVERIFY(FontRecord::FromBytes(record->ToBytes(), read));
        QCOMPARE(read, *record);
    }
    void SizeInPixels() {
        QFont font(u"Some Face"_s);
        font.setPixelSize(20);
        const std::optional<FontRecord> record = FontRecordOf(font);
        QVERIFY(record && record->tenthsOfPoint > 50 && record->tenthsOfPoint < 400);
    }
    void WithoutAFace() {
        QFont font;
        font.setFamilies({});
        font.setPointSize(10);
        QCOMPARE(FontRecordOf(font), std::nullopt);
    }
    void HugeFontIsCut() {
        QFont font(u"Some Face"_s);
        font.setPointSizeF(5000);
        QCOMPARE(FontRecordOf(font).value_or(FontRecord()).tenthsOfPoint, 10000);
    }

    void EveryFieldHasAName() {
        QStringList nameless;
        int fields = 0;
        const ModalUser looks([&](QDialog& dialog) {
            for (QWidget* widget : dialog.findChildren<QWidget*>()) {
                const bool isField = qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget) ||
                                     qobject_cast<QListView*>(widget);
                if (!isField || widget->focusPolicy() == Qt::NoFocus) continue;
                ++fields;
                if (QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
                    nameless << QString::fromLatin1(widget->metaObject()->className()) + u" in "_s +
                                    QString::fromLatin1(widget->parent()->metaObject()->className());
            }
            dialog.reject();
        });
        QCOMPARE(AskListFont(nullptr, QFont()), std::nullopt);
        QVERIFY(looks.Met());
        QVERIFY(fields >= 4);
        QCOMPARE(nameless.join(u' '), QString());
    }

    void Asked() {
        QFont present(u"Some Face"_s);
        present.setPointSize(12);
        const ModalUser accepts([](QDialog& dialog) {
            auto& fonts = static_cast<QFontDialog&>(dialog);
            QFont chosen = fonts.currentFont();
            chosen.setPointSize(17);
            fonts.setCurrentFont(chosen);
            fonts.accept();
        });
        const std::optional<FontRecord> record = AskListFont(nullptr, present);
        QVERIFY(accepts.Met());
        QCOMPARE(record.value_or(FontRecord()).tenthsOfPoint, 170);
        const ModalUser cancels([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        QCOMPARE(AskListFont(nullptr, present), std::nullopt);
        QVERIFY(cancels.Met());
    }
};

TEST_CLASS(TestListFontDialog);
#include "TestListFontDialog.moc"

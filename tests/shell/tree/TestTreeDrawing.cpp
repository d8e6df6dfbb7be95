#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "shell/look/CDrawing.h"
#include "shell/look/IconTheme.h"
#include "shell/tree/CDataTreeView.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QIcon>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A tree of three records: two of one client, one of another.
struct Fixture {
    TestHome home;
    CDataTreeView view{*home.document, *home.settings, home.prompt};

    Fixture() {
        for (const QString& client : {u"Acme"_s, u"Acme"_s, u"Bolt & Co"_s}) {
            CTRecord record;
            record.Reset();
            record.item1 = client;
            [&] { QVERIFY(home.document->AddRecord(record, {Notify::Later, Commit::Now, Identity::New})); }();
        }
        home.document->BuildVisible();
        view.resize(300, 200);
        view.show();
        view.OnHint(Hint::Rebuild, {});
        [&] { QVERIFY(QTest::qWaitForWindowExposed(&view)); }();
    }
    [[nodiscard]] QModelIndex Client(int row, int section = 0) const {
        const QAbstractItemModel& model = *view.model();
        return model.index(row, section, model.index(0, 0));
    }
};

}  // namespace

/// What the tree draws.
class TestTreeDrawing final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    /// Each text in its row, its count behind it.
    void textsAndCounts() {
        Fixture fixture;
        const Drawing drawing = CDrawing::Of(*fixture.view.viewport());
        QCOMPARE(drawing.Words(), QStringList({u"All"_s, u"Acme"_s, u"2"_s, u"Bolt & Co"_s, u"1"_s}));
        for (const int client : {0, 1})
            for (const int section : {0, 1}) {
                const DrawnText& drawn = drawing.texts[1 + 2 * client + section];
                const QRect cell = fixture.view.visualRect(fixture.Client(client, section));
                QVERIFY2(cell.contains(drawn.place.center().toPoint()), qPrintable(drawn.text));
                QCOMPARE(drawn.colour, fixture.view.palette().color(QPalette::Text));
            }
    }

    /// A folder before each text, an open one before the text of the selected node.
    void folders() {
        Fixture fixture;
        fixture.view.setCurrentIndex(fixture.Client(0));
        const QSize size = fixture.view.iconSize().isValid() ? fixture.view.iconSize() : QSize(16, 16);
        const QImage closed = QIcon::fromTheme(u"folder"_s).pixmap(size).toImage();
        const QImage open = QIcon::fromTheme(u"folder-open"_s).pixmap(size, QIcon::Selected).toImage();
        QVERIFY(!closed.isNull() && !open.isNull() && closed != open);
        QStringList folders;  // the other pictures are the branches
        for (const QPixmap& picture : CDrawing::Of(*fixture.view.viewport()).pictures) {
            if (picture.toImage() == closed) folders.append(u"closed"_s);
            if (picture.toImage() == open) folders.append(u"open"_s);
        }
        QCOMPARE(folders, QStringList({u"closed"_s, u"open"_s, u"closed"_s}));
    }
};

TEST_CLASS(TestTreeDrawing);
#include "TestTreeDrawing.moc"

#include "platform/sqlite/CRowListener.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"

#include <sqlite3.h>

#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QString Words(sqlite3_value* value) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)));
}

/// Writes down what it hears.
class Listener final : public CRowListener {
 public:
    void OnBegin(CSqliteFile&) override { heard.append(u"begin"_s); }
    void OnRow(const CChangedRow& row) override {
        QStringList words{QString::fromUtf8(row.Table())};
        for (int column = 0; column < row.ColumnCount(); ++column) {
            const QString before = row.Event() == RowEvent::Added ? u"-"_s : Words(row.Before(column));
            const QString after = row.Event() == RowEvent::Deleted ? u"-"_s : Words(row.After(column));
            words.append(before + u'>' + after);
        }
        heard.append(words.join(u' '));
    }
    void OnCommit(CSqliteFile& file) override {
        heard.append(file.InTransaction() ? u"commit"_s : u"too late"_s);
    }
    void OnEnd(bool isDurable) override { heard.append(isDurable ? u"durable"_s : u"undone"_s); }
    [[nodiscard]] QString Take() { return std::exchange(heard, {}).join(u", "_s); }

    QStringList heard;
};

}  // namespace

/// Who watches a file hears of its transactions and of their rows.
class TestRowHook : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = std::make_unique<CSqliteFile>();
        QCOMPARE(m_file->Open(m_folder->filePath(u"file"_s), {.applicationId = 1}, true),
                 OpenOutcome::Created);
        QVERIFY(m_file->Execute("CREATE TABLE a(text TEXT, id TEXT PRIMARY KEY) WITHOUT ROWID"));
        QVERIFY(m_file->Execute("CREATE TABLE log(what TEXT)"));
        m_file->Watch(&m_listener);
    }
    void cleanup() {
        m_file->Watch(nullptr);
        m_file.reset();
        m_listener.heard.clear();
    }

    void rowsOfATransaction() {
        QVERIFY(m_file->Begin());
        QVERIFY(m_file->Execute("INSERT INTO a VALUES('x', '1'); UPDATE a SET text='y'; DELETE FROM a"));
        QVERIFY(m_file->Commit());
        QCOMPARE(m_listener.Take(), u"begin, a ->x ->1, a x>y 1>1, a y>- 1>-, commit, durable"_s);
    }

    void rowsThatATriggerChanges() {
        QVERIFY(m_file->Execute(
            "CREATE TRIGGER t AFTER INSERT ON a BEGIN INSERT INTO log VALUES(NEW.text); END"));
        m_listener.heard.clear();
        QVERIFY(m_file->Begin());
        QVERIFY(m_file->Execute("INSERT INTO a VALUES('x', '1')"));
        QVERIFY(m_file->Commit());
        QCOMPARE(m_listener.Take(), u"begin, a ->x ->1, log ->x, commit, durable"_s);
    }

    void undone() {
        QVERIFY(m_file->Begin());
        QVERIFY(m_file->Execute("INSERT INTO a VALUES('x', '1')"));
        m_file->Rollback();
        QCOMPARE(m_listener.Take(), u"begin, a ->x ->1, undone"_s);
        m_file->Rollback();
        QCOMPARE(m_listener.Take(), QString());
    }

    void commitThatFails() {
        QVERIFY(m_file->Execute("PRAGMA foreign_keys=ON"));
        QVERIFY(m_file->Execute("CREATE TABLE p(id INTEGER PRIMARY KEY)"));
        QVERIFY(m_file->Execute("CREATE TABLE c(id REFERENCES p(id) DEFERRABLE INITIALLY DEFERRED)"));
        m_listener.heard.clear();
        QVERIFY(m_file->Begin());
        QVERIFY(m_file->Execute("INSERT INTO c VALUES(1)"));
        QVERIFY(!m_file->Commit());
        m_file->Rollback();
        QCOMPARE(m_listener.Take(), u"begin, c ->1, commit, undone"_s);
    }

    void openedAgain() {
        QCOMPARE(m_file->Open(m_folder->filePath(u"file"_s), {.applicationId = 1}, false),
                 OpenOutcome::Existed);
        m_listener.heard.clear();
        QVERIFY(m_file->Begin());
        QVERIFY(m_file->Execute("INSERT INTO a VALUES('x', '1')"));
        QVERIFY(m_file->Commit());
        QCOMPARE(m_listener.Take(), u"begin, a ->x ->1, commit, durable"_s);
    }

    void nobodyListens() {
        m_file->Watch(nullptr);
        QVERIFY(m_file->Begin());
        QVERIFY(m_file->Execute("INSERT INTO a VALUES('x', '1')"));
        QVERIFY(m_file->Commit());
        QCOMPARE(m_listener.Take(), QString());
    }

 private:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CSqliteFile> m_file;
    Listener m_listener;
};

TEST_CLASS(TestRowHook);
#include "TestRowHook.moc"

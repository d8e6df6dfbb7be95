#include "torture/DamagedStore.h"

#include "platform/sqlite/CSqliteFile.h"
#include "records/CERecord.h"

#include <QFile>

namespace {

/// All that a row holds.
QHash<QString, QString> ContentOf(CVOSrcMgr& manager) {
    QHash<QString, QString> content;
    for (const char* table : {"time_velmarch", "expense_velmarch", "item_velmarch", "dependency_velmarch"}) {
        RowTable rows;
        if (!manager.Query(QStringLiteral("SELECT * FROM ") + QString::fromLatin1(table), false) ||
            !manager.m_recordset->GetRows(rows))
            QTest::qFail(qPrintable(manager.m_error), __FILE__, __LINE__);
        for (std::size_t row = 0; row < rows.RowCount(); ++row) {
            QString all;
            for (int column = 0; column < rows.ColumnCount(); ++column) {
                if (rows.TypeOf(column) == RowColumnType::Integer)
                    all += QString::number(rows.Integer(column, row));
                else if (rows.TypeOf(column) == RowColumnType::Real)
                    all += QString::number(rows.Real(column, row), 'g', 17);
                else
                    all += QString::fromUtf8(rows.Text(column, row));
                all += u'|';
            }
            content.insert(QString::fromUtf8(rows.Text(rows.ColumnCount() - 1, row)), all);
        }
    }
    return content;
}

QByteArray FileOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

void DamagedStore::Add(RecordsFixture& home, int number) {
    CTRecord record = NewTime(QStringLiteral("client %1").arg(number % 17));
    record.date.Set(1 + number % 12, 1 + number % 28, 2020 + number % 7);
    // Now and then one that takes pages of its own.
    record.notes = QString(number % 200 == 0 ? 9000 : number % 120, QChar(u'a' + number % 26));
    QVERIFY(home.store.InsertRecord(record, Commit::Later));
    if (number % 8 == 0) {
        CERecord expense;
        expense.GenUnique();
        expense.date.Set(1 + number % 12, 1 + number % 28, 2020 + number % 7);
        expense.amount.Set(static_cast<float>(number) / 4);
        QVERIFY(home.store.InsertRecord(expense, Commit::Later));
    }
}

DamagedStore::DamagedStore(int records, bool hasChecks) {
    RecordsFixture home;
    for (int number = 0; number < records; ++number) Add(home, number);
    QVERIFY(home.store.Commit());
    // Whole pages become free where neighbours go; where few go, rows move from page to page.
    QVERIFY(home.manager.BeginBatch());
    const QStringList ids = ContentOf(home.manager).keys();
    QStringList sorted = ids;
    sorted.sort();
    for (qsizetype i = 0; i < sorted.size(); ++i) {
        if (i % 1000 >= 100 && i % 13 != 0) continue;
        QVERIFY(home.store.DeleteRecord(RecordKind::Time, sorted[i]));
        QVERIFY(home.store.DeleteRecord(RecordKind::Expense, sorted[i]));
    }
    QVERIFY(home.store.Commit());
    if (!hasChecks)
        for (const char* table : {"time", "expense", "item", "dependency"})
            QVERIFY(home.manager.File().Execute("DROP TABLE " + QByteArray(table) + "_velmarch_checks"));
    content = ContentOf(home.manager);
    const QString path = home.Path();
    home.manager.Close();
    bytes = FileOf(path);
}

QByteArray DamagedStore::WithPagesDestroyed(int pages, std::mt19937& random) const {
    QByteArray damaged = bytes;
    for (int i = 0; i < pages; ++i) {
        const auto page = static_cast<qsizetype>(random() % static_cast<std::size_t>(bytes.size() / kPage));
        const bool isZeros = random() % 2 == 0;
        for (qsizetype at = page * kPage; at < (page + 1) * kPage; ++at)
            damaged[at] = isZeros ? '\0' : static_cast<char>(random() % 256);
    }
    return damaged;
}

Trial SalvageAndCompare(const DamagedStore& store, const QByteArray& damaged) {
    RecordsFixture target;
    SalvagedRecords out;
    if (!SalvageStore(damaged, target.store, out))
        QTest::qFail(qPrintable(target.manager.File().Error()), __FILE__, __LINE__);
    const QHash<QString, QString> saved = ContentOf(target.manager);
    Trial trial;
    for (auto record = saved.begin(); record != saved.end(); ++record) {
        const auto was = store.content.constFind(record.key());
        if (was == store.content.constEnd())
            ++trial.returned;
        else if (*was == *record)
            ++trial.right;
        else if (!out.doubtful.contains(record.key()))
            ++trial.wrong;
    }
    const auto missing =
        static_cast<int>(store.content.size()) - (static_cast<int>(saved.size()) - trial.returned);
    trial.isSaid = out.isLossKnown ? out.lost.count == missing : out.lost.count <= missing;
    return trial;
}

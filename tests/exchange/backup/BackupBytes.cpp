#include "exchange/backup/BackupBytes.h"

#include "platform/sqlite/CSqliteFile.h"
#include "records/CDRecord.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"

#include <sqlite3.h>

#include <QCryptographicHash>
#include <QFile>
#include <QtEndian>

using namespace Qt::Literals::StringLiterals;

QString GoldenPath(const QString& name) {
    return QStringLiteral(GOLDEN_BACKUPS) + name;
}

QByteArray GoldenFile(const QString& name) {
    return BytesOf(GoldenPath(name));
}

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool PutBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray Int32(qint32 number) {
    QByteArray bytes(4, Qt::Uninitialized);
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray WithDigest(const QByteArray& rest) {
    return QCryptographicHash::hash(rest, QCryptographicHash::Md5) + rest;
}

QByteArray Head(qint32 form, qint32 version) {
    return Int32(form) + Int32(version) +
           QByteArray::fromHex(
               "ea070b0005001400"
               "0c0022003800"
               "1503");
}

QStringList StoreRows(TestHome& home) {
    QStringList rows;
    for (const char* table : {"time", "expense", "item", "dependency"}) {
        sqlite3_stmt* statement =
            home.manager.File().Prepare(QByteArray("SELECT * FROM ") + table + "_velmarch ORDER BY identity");
        while (statement && sqlite3_step(statement) == SQLITE_ROW) {
            QStringList row{QString::fromLatin1(table)};
            for (int column = 0; column < sqlite3_column_count(statement); ++column)
                row +=
                    QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
            rows += row.join(u'|');
        }
        sqlite3_reset(statement);
    }
    return rows;
}

namespace {

bool Put(TestHome& home, CVORec& record, const char* id) {
    record.SetId(QString::fromLatin1(id));
    return home.store->InsertRecord(record, Commit::Later);
}

bool PutTimes(TestHome& home) {
    CTRecord full;
    full.date.Set(11, 19, 2026);
    full.SetBillable(true);
    full.SetStart(9, 0, false);
    full.SetEnd(5, 30, true);
    full.SetBreak(0, 30);
    full.item1 = u"Müller & Söhne"_s;
    full.item2 = u"Plan \"A\""_s;
    full.item3 = u"it's"_s;
    full.item4 = u"100 %"_s;
    full.item5 = u"😀"_s;
    full.rate.Set(80.125F);
    full.amount.Set(641.0F);
    full.isExported = true;
    full.notes = u"first line\r\nsecond line"_s;
    CTRecord bare;
    bare.date.Set(2, 29, 2024);
    return Put(home, full, "00000000000000000000000000000001") &&
           Put(home, bare, "00000000000000000000000000000002");
}

bool PutExpenses(TestHome& home) {
    CERecord distance;
    distance.date.Set(11, 18, 2026);
    distance.item1 = u"Beta"_s;
    distance.item4 = u"Cash"_s;
    distance.item5 = u"EUR"_s;
    distance.odometerStart = u"1000"_s;
    distance.odometerEnd = u"1012,5"_s;
    distance.isDistance = true;
    distance.TakeStoredDistance(u"12,50"_s);
    distance.rate.Set(0.3F);
    distance.amount.Set(3.75F);
    distance.flag1 = distance.flag2 = distance.flag5 = true;
    distance.notes = u"by car"_s;
    CERecord amount;
    amount.date.Set(1, 1, 2026);
    amount.item1 = u"Acme"_s;
    amount.item2 = u"Food"_s;
    amount.item3 = u"Inn"_s;
    amount.amount.Set(19.99F);
    amount.flag3 = amount.isExported = true;
    return Put(home, distance, "0000000000000000000000000000000A") &&
           Put(home, amount, "0000000000000000000000000000000B");
}

bool PutLists(TestHome& home) {
    CPRecord text(u"Müller & Söhne"_s), number(1.5F);
    text.listId = 16;
    number.listId = 34;
    CDRecord chunk, root;
    for (CDRecord* record : {&chunk, &root}) {
        record->SetPacked(false);
        record->number = 55;
    }
    chunk.data = QByteArray::fromHex(
        "153310"
        "000000000000000000000000000000C1"
        "3d29");
    root.data = QByteArray::fromHex("000000000000000000000000000000D1");
    return Put(home, text, "000000000000000000000000000000C1") &&
           Put(home, number, "000000000000000000000000000000C2") &&
           Put(home, chunk, "000000000000000000000000000000D1") &&
           Put(home, root, "FFFF26110BDC7162F073A5BC94A40010");
}

}  // namespace

bool FillLikeGolden(TestHome& home) {
    return PutTimes(home) && PutExpenses(home) && PutLists(home) && home.store->Commit();
}

// Writes the sound inputs from which the corpus starts: fuzz_make_corpus FOLDER. Inputs that a fuzzer found
// are added by hand beside them.
#include "FuzzTexts.h"
#include "app/DependencyBytes.h"
#include "config/CTreeColSet.h"
#include "platform/settings/CSettingsTree.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/ByteStream.h"
#include "records/CDRecord.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"
#include "records/GuardedBlock.h"
#include "records/RunPack.h"
#include "timers/ActiveTimerSet.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

QDir theFolder;

void Put(const char* target, const char* name, const QByteArray& bytes) {
    const QString folder = theFolder.filePath(QString::fromLatin1(target));
    QFile file(folder + u'/' + QString::fromLatin1(name));
    if (!QDir().mkpath(folder) || !file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s can't be written", qPrintable(file.fileName()));
}

void PutRecord(const char* name, char choice, const CVORec& record) {
    Put("record_bytes", name, choice + record.ToBytes());
}

CTRecord TimeRecord() {
    CTRecord record;
    record.date.Set(11, 19, 2026);
    record.SetStart(9, 5, false);
    record.SetEnd(5, 35, true);
    record.SetBreak(0, 30);
    record.item1 = u"A \u00DC \U0001F4C8"_s;
    record.notes = u"n"_s;
    record.SetBillable(true);
    record.SetRate(80.0F);
    return record;
}

CERecord Trip() {
    CERecord record;
    record.date.Set(11, 19, 2026);
    record.item3 = u"Trip"_s;
    record.isDistance = true;
    record.distance.Set(12.5F);
    record.rate.Set(0.3F);
    record.amount.Set(3.75F);
    record.odometerStart = u"100"_s;
    record.odometerEnd = u"112.5"_s;
    record.flag5 = true;
    return record;
}

CDRecord Block(const QByteArray& data, bool isPacked) {
    CDRecord record;
    record.number = 55;
    record.data = data;
    record.SetPacked(isPacked);
    return record;
}

void MakeRecords() {
    PutRecord("time", 0, TimeRecord());
    PutRecord("time-empty", 0, CTRecord());
    PutRecord("expense", 1, Trip());
    PutRecord("expense-empty", 1, CERecord());
    PutRecord("item-text", 2, CPRecord(u"Client A"_s));
    PutRecord("item-number", 2, CPRecord(1.5F));
    PutRecord("block-plain", 3, Block("abc", false));
    PutRecord("block-packed", 11, Block("aaaaabc", true));
    ByteStream ansi;
    ansi.PutInt(1);
    ansi.PutBuffer("caf\xC3\xA9");
    ansi.PutInt(16);
    Put("record_bytes", "item-8-bit", '\x06' + ansi.Release());
}

void MakeStreams() {
    ByteStream stream;
    stream.PutByte(7);
    stream.PutInt(-1);
    stream.PutFloat(1.5F);
    stream.PutString(u"text"_s);
    stream.PutString(u"cut"_s);
    stream.PutBuffer("buffer");
    const QByteArray order = QByteArray::fromHex("06000102030405");
    Put("byte_stream", "each-form", order + stream.Buffer());
    Put("byte_stream", "read-beyond", QByteArray::fromHex("08010203000102030405") + stream.Buffer());
    Put("byte_stream", "negative-length", QByteArray::fromHex("010101000000ffffffff"));
}

void MakePacked() {
    const QByteArray limit = QByteArray::fromHex("ffff");
    Put("run_pack", "run-of-130", limit + RunPack(QByteArray(130, 'z')));
    Put("run_pack", "literals-and-runs", limit + RunPack("abccccdeeffffffff"));
    Put("run_pack", "plain-of-300", limit + QByteArray("abc").repeated(100));
    Put("run_pack", "limit-of-2", QByteArray::fromHex("0200") + RunPack("aaa"));
    Put("run_pack", "cut-group", limit + QByteArray::fromHex("7f6162"));
}

void MakeBlocks() {
    Put("guarded_block", "nothing", BlockText({}).toLatin1());
    Put("guarded_block", "abc", BlockText("abc").toLatin1());
    Put("guarded_block", "bad-digest", BlockText("abc").toLatin1().replace("616263", "616264"));
    Put("guarded_block", "no-digits", "900150983CD24FB0D6963F7D28E17F72G1626");
}

class CStandingClock final : public CClock {
 public:
    [[nodiscard]] SYSTEMTIME GetLocalTime() const override { return {2026, 11, 4, 19, 9, 0, 0, 0}; }
};

void MakeTimers() {
    const CStandingClock clock;
    ActiveTimerSet set(clock);
    set.Start(u"0123456789ABCDEF0123456789ABCDEF"_s, false, 0, 0, 0);
    set.Start(u"FEDCBA9876543210FEDCBA9876543210"_s, true, 1, 2, 3);
    set.Pause(u"FEDCBA9876543210FEDCBA9876543210"_s);
    ByteStream stream;
    if (!set.Save(stream)) qFatal("the timers have no bytes");
    Put("timers", "running-and-paused", stream.Buffer());
    Put("timers", "cut", stream.Buffer().left(150));
}

/// A settings file with small pages, so that it is small.
QByteArray SettingsFile(const char* extra) {
    const QString path = theFolder.filePath(u"velmarch.settings"_s);
    {
        CSettingsTree tree;
        if (!tree.Open(path)) qFatal("no settings file can be made");
        const CSettingsKey key = tree.CreateKey(tree.Root(), u"Velmarch"_s);
        const bool isFilled =
            tree.WriteValue(key, u"number"_s, std::int32_t{-1}) && tree.WriteValue(key, u"text"_s, u"t"_s) &&
            tree.WriteValue(key, u"bytes"_s, QByteArray("b")) && tree.CreateKey(key, u"child"_s).IsOpen();
        if (!isFilled || !tree.File().Execute(extra) || !tree.File().Execute("PRAGMA page_size=512; VACUUM"))
            qFatal("the settings file can't be filled");
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) qFatal("the settings file is gone");
    const QByteArray bytes = file.readAll();
    file.remove();
    QFile::remove(path + u"-journal"_s);
    return bytes;
}

void MakeSettings() {
    const QByteArray sound = SettingsFile("");
    Put("settings_tree", "sound", sound);
    Put("settings_tree", "cut", sound.left(700));
    Put("settings_tree", "nothing", {});
    Put("settings_tree", "no-database", "This is no settings file.");
    Put("settings_tree", "newer", SettingsFile("PRAGMA user_version=2"));
    Put("settings_tree", "foreign", SettingsFile("PRAGMA application_id=1"));
    Put("settings_tree", "keys-in-a-circle", SettingsFile("UPDATE keys SET parent=3 WHERE id=2"));
    Put("settings_tree", "other-tables", SettingsFile("DROP TABLE entries; CREATE TABLE entries(a)"));
    QByteArray writeAheadLog = sound;
    writeAheadLog[18] = writeAheadLog[19] = 2;
    Put("settings_tree", "write-ahead-log", writeAheadLog);
}

/// Items as the target knows them.
CPRecord Item(int number) {
    CPRecord item(u"item"_s);
    item.SetId(u"0%1"_s.arg(number) + QString(30, u'0'));
    return item;
}

void MakeTrees() {
    const CPRecord one = Item(1), two = Item(2), three = Item(3);
    DependencyTree tree;
    DependencyTree::Node& first = tree.Append(tree.Root(), one);
    tree.Append(first, two);
    tree.Append(tree.Append(first, three), two);
    tree.Append(tree.Root(), two);
    const QByteArray bytes = TreeToBytes(tree);
    Put("dependency_tree", "two-under-one", bytes);
    Put("dependency_tree", "groups-not-closed", bytes.chopped(2));
    Put("dependency_tree", "unknown-item", QByteArray(bytes).replace(4, 1, "\x01"));
}

QByteArray PlainOf(const QByteArray& blob) {
    ByteStream stream;
    stream.Attach(blob);
    QByteArray guarded, packed;
    if (!stream.GetBuffer(guarded) || Unguard(guarded, packed) != BlockState::Sound)
        qFatal("a set of columns has no sound blob");
    return RunUnpack(packed, 65536).value_or(QByteArray());
}

void MakeColumns() {
    CColSet list;
    list.SetDefaults();
    CTreeColSet levels;
    levels.SetDefaults();
    QByteArray blob, levelBlob;
    if (!list.MakeBlob(blob) || !levels.MakeBlob(levelBlob)) qFatal("no blob can be made");
    Put("column_blob", "list", '\0' + blob);
    Put("column_blob", "levels", '\0' + levelBlob);
    Put("column_blob", "list-plain", '\1' + PlainOf(blob));
    Put("column_blob", "list-plain-cut", '\1' + PlainOf(blob).chopped(3));
}

/// Pages of 512 bytes: a table with numbers of rows, one with a key, an index, a long text, unused pages.
void MakePages() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"pages"_s);
    CSqliteFile file;
    const QByteArray make =
        "CREATE TABLE plain(a INTEGER, b TEXT); CREATE TABLE keyed(id TEXT PRIMARY KEY, n REAL, t TEXT) "
        "WITHOUT ROWID;"
        "CREATE INDEX by_n ON keyed(n); CREATE TABLE gone(x)";
    const QByteArray fill =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60)"
        "INSERT INTO keyed SELECT printf('%032X', i), i / 4.0, 'row ' || i FROM n;"
        "INSERT INTO plain VALUES(-1, ''), (70000, printf('%.1200c', 'n')), (NULL, x'0001');"
        "INSERT INTO gone SELECT t FROM keyed; DROP TABLE gone";
    if (file.Open(path, {.applicationId = 1}, true) != OpenOutcome::Created ||
        !file.Execute("PRAGMA journal_mode=DELETE; PRAGMA page_size=512; VACUUM") || !file.Execute(make) ||
        !file.Execute(fill))
        qFatal("%s", qPrintable(file.Error()));
    file.Close();
    QFile made(path);
    if (!made.open(QIODevice::ReadOnly)) qFatal("the file can't be read");
    const QByteArray bytes = made.readAll();
    Put("pages", "small", bytes);
    Put("pages", "first-page", bytes.left(512));
    Put("pages", "without-first-page", QByteArray(512, '\0') + bytes.mid(512));
    Put("pages", "cut", bytes.chopped(700));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) qFatal("usage: fuzz_make_corpus FOLDER");
    theFolder.setPath(QString::fromLocal8Bit(argv[1]));
    if (!QDir().mkpath(theFolder.path())) qFatal("%s can't be made", argv[1]);
    LoadTexts();
    MakeRecords();
    MakeStreams();
    MakePacked();
    MakeBlocks();
    MakeTimers();
    MakeSettings();
    MakeTrees();
    MakeColumns();
    MakePages();
    return 0;
}

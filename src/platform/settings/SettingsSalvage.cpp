#include "platform/settings/SettingsSalvage.h"

#include <sqlite3.h>

#include <map>
#include <utility>

#include "platform/pages/CPageWalk.h"
#include "platform/pages/PageSize.h"
#include "platform/settings/CSettingsTree.h"
#include "platform/settings/SettingsChecks.h"
#include "platform/sqlite/CCheckSum.h"

namespace {

/// Numbers of keys are small, checksums are not.
constexpr std::int64_t kMostKeys = 1'000'000'000;

using Place = std::pair<std::int64_t, QByteArray>;  ///< of a value: its key and name; of a key: its parent

struct Entry {
    QByteArray type;
    RawValue value;
};

const QByteArray* TextOf(const RawValue& value) {
    const auto* text = std::get_if<RawText>(&value);
    return text != nullptr ? &text->utf8 : nullptr;
}

const std::int64_t* NumberOf(const RawValue& value) {
    return std::get_if<std::int64_t>(&value);
}

std::int64_t SumOf(const Place& place, const Entry& entry) {
    CCheckSum sum;
    sum.AddInteger(place.first);
    sum.AddText(place.second);
    sum.AddText(entry.type);
    if (const auto* number = NumberOf(entry.value))
        sum.AddInteger(*number);
    else if (const auto* text = TextOf(entry.value))
        sum.AddText(*text);
    else if (const auto* blob = std::get_if<RawBlob>(&entry.value))
        sum.AddBlob(blob->bytes);
    return sum.Value();
}

void Bind(sqlite3_stmt* statement, int place, const RawValue& value) {
    const auto size = [](const QByteArray& bytes) { return static_cast<int>(bytes.size()); };
    if (const auto* number = NumberOf(value))
        sqlite3_bind_int64(statement, place, *number);
    else if (const auto* text = TextOf(value))
        sqlite3_bind_text(statement, place, text->constData(), size(*text), SQLITE_TRANSIENT);
    else if (const auto* blob = std::get_if<RawBlob>(&value))
        sqlite3_bind_blob(statement, place, blob->bytes.constData(), size(blob->bytes), SQLITE_TRANSIENT);
}

bool Insert(CSqliteFile& file, const char* sql, const std::vector<RawValue>& values) {
    sqlite3_stmt* statement = file.Prepare(sql);
    if (statement == nullptr) return false;
    int place = 0;
    for (const RawValue& value : values) Bind(statement, ++place, value);
    const bool isDone = sqlite3_step(statement) == SQLITE_DONE;
    if (!isDone) file.NoteError();
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    return isDone;
}

/// What lies in the pages of the file. What is found first stays: rows of trees come before the others.
class CEntries {
 public:
    void Note(const CPageWalk::Found& found);
    [[nodiscard]] bool Write(CSqliteFile& file, SalvagedSettings& out) const;

 private:
    void NoteLoss(const Place& place, SalvagedSettings& out) const;
    void NoteThree(const CPageWalk::Found& found, const QByteArray& name);

    std::map<std::int64_t, Place> m_keys;
    std::map<Place, Entry> m_entries;
    std::map<Place, std::int64_t> m_checks;
};

/// A row of three: a key (without its number, which is the row's), an entry of the index of keys, a checksum.
void CEntries::NoteThree(const CPageWalk::Found& found, const QByteArray& name) {
    const auto* last = NumberOf(found.row[2]);
    const auto* first = NumberOf(found.row[0]);
    if (last == nullptr || first == nullptr) return;
    const bool isKey =
        found.tree != nullptr ? !found.tree->name.startsWith("entries") : *last > 0 && *last < kMostKeys;
    if (isKey)
        m_keys.emplace(*last, Place(*first, name));
    else
        m_checks.emplace(Place(*first, name), *last);
}

void CEntries::Note(const CPageWalk::Found& found) {
    const RawRow& row = found.row;
    if (row.size() == 3 && TextOf(row[2]) != nullptr && NumberOf(row[1]) != nullptr)
        m_keys.emplace(found.rowId, Place(*NumberOf(row[1]), *TextOf(row[2])));
    else if (row.size() == 3 && TextOf(row[1]) != nullptr)
        NoteThree(found, *TextOf(row[1]));
    else if (row.size() == 4 && NumberOf(row[0]) != nullptr && TextOf(row[1]) != nullptr &&
             TextOf(row[2]) != nullptr)
        m_entries.emplace(Place(*NumberOf(row[0]), *TextOf(row[1])), Entry{*TextOf(row[2]), row[3]});
}

bool CEntries::Write(CSqliteFile& file, SalvagedSettings& out) const {
    for (const auto& [id, place] : m_keys)
        if (!Insert(file, "INSERT OR IGNORE INTO keys(id, parent, name) VALUES(?, ?, ?)",
                    {id, place.first, RawText{place.second}}))
            return false;
    for (const auto& [place, entry] : m_entries) {
        const auto check = m_checks.find(place);
        const bool isSound = check == m_checks.end() || check->second == SumOf(place, entry);
        if (isSound && m_keys.contains(place.first))
            ++out.saved;
        else
            NoteLoss(place, out);
        if (isSound &&
            !Insert(file, "INSERT OR IGNORE INTO entries(key, name, type, value) VALUES(?, ?, ?, ?)",
                    {place.first, RawText{place.second}, RawText{entry.type}, entry.value}))
            return false;
    }
    for (const auto& [place, sum] : m_checks)
        if (!m_entries.contains(place)) NoteLoss(place, out);
    return true;
}

void CEntries::NoteLoss(const Place& place, SalvagedSettings& out) const {
    ++out.lost;
    const auto key = m_keys.find(place.first);
    if (key != m_keys.end()) out.lostNames += QString::fromUtf8(key->second.second + '/' + place.second);
}

}  // namespace

bool SalvageSettings(QByteArrayView bytes, CSettingsTree& target, SalvagedSettings& out) {
    const CPageImage image(bytes, PageSizeOf(bytes));
    const CPageWalk walk(image);
    CEntries entries;
    walk.ForEachRow([&](const CPageWalk::Found& found) { entries.Note(found); });
    CSqliteFile& file = target.File();
    if (file.Begin() && entries.Write(file, out) && EntryChecks().Fill(file) && file.Commit()) return true;
    file.Rollback();
    return false;
}

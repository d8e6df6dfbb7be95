#include "lang/LoadText.h"

#include "lang/TextFormat.h"
#include "lang/TextRow.h"

#include <dlfcn.h>
#include <QFile>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace {

constexpr const char* kLibraryName = "DvAfxRes_Eng.so";
constexpr const char* kEntryName = "LanguageTexts";
constexpr int kLargestNumber = 100000;

struct LoadedText {
    int id;
    QString name;
    QString text;
};

/// The texts of one library, ascending by number, and where in there each number stands: a record that is
/// stored asks for some sixty texts.
struct TextTable {
    std::vector<LoadedText> rows;
    std::vector<std::uint16_t> places;  ///< by number less the first one; kNowhere for a number not in use
    static constexpr std::uint16_t kNowhere = 0xFFFF;

    [[nodiscard]] const LoadedText* Find(int id) const {
        const auto offset = static_cast<std::size_t>(id - rows.front().id);
        if (id < rows.front().id || offset >= places.size() || places[offset] == kNowhere) return nullptr;
        return &rows[places[offset]];
    }
};

struct Library {
    void* handle = nullptr;
    const TextTable* texts = nullptr;
};

Library& TheLibrary() {
    static Library library;
    return library;
}

/// Keeps a table to the end of the process, past every static object: a reference that LoadText gave out
/// stays good even after the library was freed or another one was loaded.
const TextTable* Keep(TextTable&& table) {
    static auto& kept = *new std::vector<std::unique_ptr<const TextTable>>;
    kept.push_back(std::make_unique<const TextTable>(std::move(table)));
    return kept.back().get();
}

/// A library of another version, in which a format takes other arguments than the program gives, or whose
/// numbers aren't ascending, is no good: printing with it would read arguments that aren't there.
bool IsGood(std::span<const TextRow> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i > 0 && rows[i - 1].id >= rows[i].id) return false;
        const auto kinds = FormatKinds(rows[i].text);
        if (!kinds || *kinds != TextSignature(static_cast<Text>(rows[i].id))) return false;
    }
    return !rows.empty() && rows.size() < TextTable::kNowhere && rows.front().id > 0 &&
           rows.back().id < kLargestNumber;
}

/// Empty without an entry.
std::span<const TextRow> TextsBehind(LanguageTextsEntry entry) {
    int count = 0;
    const TextRow* texts = entry ? entry(&count) : nullptr;
    return {texts, static_cast<std::size_t>(count)};
}

std::vector<LoadedText> ReadTexts(std::span<const TextRow> texts) {
    std::vector<LoadedText> rows;
    rows.reserve(texts.size());
    for (const TextRow& row : texts)
        rows.push_back({row.id, QString::fromLatin1(row.name), QString::fromUtf8(row.text)});
    return rows;
}

TextTable Indexed(std::vector<LoadedText>&& rows) {
    TextTable table{std::move(rows), {}};
    const int first = table.rows.front().id;
    table.places.assign(static_cast<std::size_t>(table.rows.back().id - first) + 1, TextTable::kNowhere);
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        table.places[static_cast<std::size_t>(table.rows[i].id - first)] = static_cast<std::uint16_t>(i);
    return table;
}

const LoadedText* Find(int id) {
    const TextTable* texts = TheLibrary().texts;
    return texts ? texts->Find(id) : nullptr;
}

}  // namespace

bool LoadLanguageLibrary(const QString& folder) {
    FreeLanguageLibrary();
    const QByteArray path = QFile::encodeName(folder + u'/' + QLatin1String(kLibraryName));
    void* handle = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) return false;
    const auto entry = reinterpret_cast<LanguageTextsEntry>(dlsym(handle, kEntryName));
    const std::span<const TextRow> texts = TextsBehind(entry);
    if (!IsGood(texts)) {
        dlclose(handle);
        return false;
    }
    TheLibrary() = {handle, Keep(Indexed(ReadTexts(texts)))};
    return true;
}

void FreeLanguageLibrary() {
    Library& library = TheLibrary();
    if (library.handle) dlclose(library.handle);
    library = {};
}

const QString& LoadText(Text id) {
    return LoadText(static_cast<int>(id));
}

const QString& LoadText(int id) {
    static const auto& none = *new QString;
    const LoadedText* row = Find(id);
    return row ? row->text : none;
}

QList<std::pair<int, QString>> AllTexts() {
    QList<std::pair<int, QString>> all;
    if (const TextTable* texts = TheLibrary().texts)
        for (const LoadedText& row : texts->rows) all.append({row.id, row.text});
    return all;
}

QString TextName(int id) {
    const LoadedText* row = Find(id);
    return row ? row->name : QString();
}

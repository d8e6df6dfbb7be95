#include "lang/LoadText.h"

#include "lang/TextFormat.h"
#include "lang/TextRow.h"

#include <dlfcn.h>
#include <QFile>
#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr const char* kLibraryName = "DvAfxRes_Eng.so";
constexpr const char* kEntryName = "LanguageTexts";

struct LoadedText {
    int id;
    QString name;
    QString text;
};

/// The texts of one library, ascending by number.
using TextTable = std::vector<LoadedText>;

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
bool IsGood(const TextTable& table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (i > 0 && table[i - 1].id >= table[i].id) return false;
        const auto kinds = FormatKinds(table[i].text.toStdString());
        if (!kinds || *kinds != TextSignature(static_cast<Text>(table[i].id))) return false;
    }
    return !table.empty();
}

TextTable ReadTexts(LanguageTextsEntry entry) {
    int count = 0;
    const TextRow* rows = entry(&count);
    TextTable table;
    table.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        table.push_back({rows[i].id, QString::fromUtf8(rows[i].name), QString::fromUtf8(rows[i].text)});
    return table;
}

const LoadedText* Find(int id) {
    const TextTable* texts = TheLibrary().texts;
    if (!texts) return nullptr;
    const auto at = std::lower_bound(texts->begin(), texts->end(), id,
                                     [](const LoadedText& row, int wanted) { return row.id < wanted; });
    return at != texts->end() && at->id == id ? &*at : nullptr;
}

}  // namespace

bool LoadLanguageLibrary(const QString& folder) {
    FreeLanguageLibrary();
    const QByteArray path = QFile::encodeName(folder + u'/' + QLatin1String(kLibraryName));
    void* handle = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) return false;
    const auto entry = reinterpret_cast<LanguageTextsEntry>(dlsym(handle, kEntryName));
    TextTable table = entry ? ReadTexts(entry) : TextTable();
    if (!IsGood(table)) {
        dlclose(handle);
        return false;
    }
    TheLibrary() = {handle, Keep(std::move(table))};
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
        for (const LoadedText& row : *texts) all.append({row.id, row.text});
    return all;
}

QString TextName(int id) {
    const LoadedText* row = Find(id);
    return row ? row->name : QString();
}

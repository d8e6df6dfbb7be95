// Makes the language library's source and the header of its names from the list of texts.
// usage: maketexts LIST HEADER SOURCE
#include "lang/TextFormat.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace {

struct ListRow {
    std::string name;
    std::string text;
};

[[noreturn]] void Fail(const std::string& list, int line, const std::string& why) {
    std::cerr << list << ':' << line << ": " << why << '\n';
    std::exit(1);
}

/// Undoes the escapes of a quoted text.
std::string Unquote(const std::string& quoted, const std::string& list, int line) {
    std::string out;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        if (quoted[i] != '\\') {
            out += quoted[i];
            continue;
        }
        if (++i + 1 == quoted.size()) Fail(list, line, "the closing quote is escaped");
        switch (quoted[i]) {
            case 'n':
                out += '\n';
                break;
            case 't':
                out += '\t';
                break;
            case '"':
                out += '"';
                break;
            case '\\':
                out += '\\';
                break;
            default:
                Fail(list, line, "unknown escape");
        }
    }
    return out;
}

/// In a plain text only \n is an escape.
std::string Plain(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isBreak = text[i] == '\\' && i + 1 < text.size() && text[i + 1] == 'n';
        out += isBreak ? '\n' : text[i];
        if (isBreak) ++i;
    }
    return out;
}

/// The kinds of arguments that a format takes; a text with an unknown form ends the run.
std::string Signature(const std::string& text, const std::string& list, int line) {
    const auto kinds = FormatKinds(text);
    if (!kinds) Fail(list, line, "a percent sign that starts no known form; write %% for a percent sign");
    return *kinds;
}

std::string Literal(const std::string& text) {
    std::ostringstream out;
    out << '"';
    for (const char c : text) {
        if (c == '\n')
            out << "\\n";
        else if (c == '\t')
            out << "\\t";
        else if (c == '"' || c == '\\')
            out << '\\' << c;
        else
            out << c;
    }
    out << '"';
    return out.str();
}

/// The name becomes an enumerator, so it must be one word of letters and digits with a capital in front.
bool IsName(const std::string& name) {
    const auto isPart = [](unsigned char c) { return std::isalnum(c) != 0; };
    return std::isupper(static_cast<unsigned char>(name[0])) && std::all_of(name.begin(), name.end(), isPart);
}

/// The text of a row, as it stands behind number and name.
std::string ReadText(const std::string& rest, const std::string& list, int line) {
    if (rest.starts_with('"')) {
        if (rest.size() < 2 || rest.back() != '"') Fail(list, line, "the closing quote is missing");
        return Unquote(rest, list, line);
    }
    if (rest.ends_with(' ')) Fail(list, line, "a text with a blank at its end needs quotes");
    return Plain(rest);
}

std::map<int, ListRow> ReadList(const std::string& path) {
    std::ifstream in(path);
    if (!in) Fail(path, 0, "can't be read");
    std::map<int, ListRow> rows;
    std::set<std::string> names;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream parts(line);
        int id = 0;
        ListRow row;
        if (!(parts >> id >> row.name) || id < 1 || !IsName(row.name))
            Fail(path, number, "expected: number Name text");
        std::string rest;
        std::getline(parts >> std::ws, rest);
        row.text = ReadText(rest, path, number);
        if (!names.insert(row.name).second) Fail(path, number, "the name " + row.name + " comes twice");
        Signature(row.text, path, number);
        if (!rows.emplace(id, row).second)
            Fail(path, number, "the number " + std::to_string(id) + " comes twice");
    }
    return rows;
}

/// A full disk must not leave half a file that compiles.
void Finish(std::ofstream& out, const std::string& path) {
    out.close();
    if (!out) Fail(path, 0, "can't be written");
}

void WriteHeader(const std::string& path, const std::map<int, ListRow>& rows, const std::string& list) {
    std::ofstream out(path);
    out << "// Made from lang/eng.txt. Don't edit.\n#pragma once\n\n#include <string_view>\n\n"
        << "/// The texts of the language library by readable names.\nenum class Text : int {\n";
    for (const auto& [id, row] : rows) out << "    " << row.name << " = " << id << ",\n";
    out << "};\n\n/// The arguments that a format text takes, in order: d whole number, g floating point, s "
           "text.\n"
        << "constexpr std::string_view TextSignature(Text id) {\n    switch (id) {\n";
    for (const auto& [id, row] : rows) {
        const std::string kinds = Signature(row.text, list, 0);
        if (!kinds.empty()) out << "        case Text::" << row.name << ": return \"" << kinds << "\";\n";
    }
    out << "        default: return \"\";\n    }\n}\n";
    Finish(out, path);
}

void WriteSource(const std::string& path, const std::map<int, ListRow>& rows) {
    std::ofstream out(path);
    out << "// Made from lang/eng.txt. Don't edit.\n#include \"lang/TextRow.h\"\n\n"
        << "extern \"C\" __attribute__((visibility(\"default\"))) const TextRow* LanguageTexts(int* count) "
           "{\n"
        << "    static const TextRow kTexts[] = {\n";
    for (const auto& [id, row] : rows)
        out << "        {" << id << ", " << Literal(row.name) << ", " << Literal(row.text) << "},\n";
    out << "    };\n    *count = static_cast<int>(sizeof kTexts / sizeof kTexts[0]);\n    return "
           "kTexts;\n}\n";
    Finish(out, path);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: maketexts LIST HEADER SOURCE\n";
        return 2;
    }
    const std::string list = argv[1];
    const auto rows = ReadList(list);
    WriteHeader(argv[2], rows, list);
    WriteSource(argv[3], rows);
    return 0;
}

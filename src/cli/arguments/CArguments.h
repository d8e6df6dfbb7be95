#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <string_view>
#include <vector>

/// What stands on the command line for one command: its words and the options that were given, as typed.
class CArguments {
 public:
    void AddWord(const QString& word) { m_words.append(word); }
    void AddOption(std::string_view name, const QStringList& values) { m_options.push_back({name, values}); }

    /// What isn't an option: identities, a name, a value.
    [[nodiscard]] const QStringList& Words() const { return m_words; }
    [[nodiscard]] bool Has(std::string_view option) const { return Find(option) != nullptr; }
    [[nodiscard]] std::optional<QString> Value(std::string_view option) const {
        const Given* given = Find(option);
        return given && !given->values.isEmpty() ? std::optional(given->values.last()) : std::nullopt;
    }
    [[nodiscard]] QStringList Values(std::string_view option) const {
        const Given* given = Find(option);
        return given ? given->values : QStringList();
    }

 private:
    struct Given {
        std::string_view name;  ///< of the table of commands
        QStringList values;
    };
    [[nodiscard]] const Given* Find(std::string_view option) const {
        for (const Given& given : m_options)
            if (given.name == option) return &given;
        return nullptr;
    }
    QStringList m_words;
    std::vector<Given> m_options;
};

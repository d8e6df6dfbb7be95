#pragma once

#include "platform/settings/SettingsValue.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "platform/sqlite/CSqliteFile.h"

class CSettingsTree;

/// An open key of the settings tree. Holds no lock and no statement, only the key's row; a key deleted
/// elsewhere makes reads and writes through it fail.
class CSettingsKey {
 public:
    CSettingsKey() = default;
    [[nodiscard]] bool IsOpen() const { return m_tree != nullptr; }
    /// Its place in the order of making; never another key's.
    [[nodiscard]] std::int64_t Place() const { return m_row; }

 private:
    friend class CSettingsTree;
    CSettingsKey(CSettingsTree* tree, std::int64_t row) : m_tree(tree), m_row(row) {}
    CSettingsTree* m_tree = nullptr;
    std::int64_t m_row = 0;
};

/// A tree of keys with child keys and named values (integer, text, binary), kept in one SQLite file. Names
/// are data: any text, slashes included, never a path; case counts. Empty keys exist. Writes are durable when
/// they return, and single values are written by themselves, so two programs that change different values
/// lose none. The file's tables are described in docs/settings-tree.md.
class CSettingsTree {
 public:
    enum class Created { No, Yes };

    /// What identifies a settings file: for a caller that examines one without opening it as a tree.
    static constexpr SqliteFileKind kFileKind{
        .applicationId = 0x564D5354 /* "VMST" */, .version = 1, .busySeconds = kMostWaitSeconds};

    CSettingsTree();
    ~CSettingsTree();

    /// Opens the file, creating it when absent. A file that can't be read (damaged, foreign, a folder) is
    /// put in quarantine under another name, said in KeptAside(), and a fresh one takes its place. Newer or
    /// locked files stay untouched: false, the tree then works from memory alone, and Error() tells why. From
    /// a file that may only be read the values come, and every write fails. busySeconds: how long to wait for
    /// one lock of another program at most, here and at every later call.
    [[nodiscard]] bool Open(const QString& path, int busySeconds = kMostWaitSeconds);
    /// For a program whose changes would be lost with its end, or would be made of what wasn't read, as a
    /// console command's: all are refused from here on, and Error() tells why.
    void RefuseChanges();
    /// False for a tree that works from memory alone: what isn't in it may be in the file all the same.
    [[nodiscard]] bool IsFromFile() const { return m_isFromFile; }
    [[nodiscard]] const QString& KeptAside() const { return m_keptAside; }
    [[nodiscard]] const QString& Error() const { return m_error; }
    /// The names of values that Open found damaged ("ActiveTimers/Content"). They are out of use, put aside
    /// within the file where it may be written.
    [[nodiscard]] const QStringList& DamagedValues() const { return m_damagedValues; }

    [[nodiscard]] CSettingsKey Root();
    /// Opens a child, creating it when absent; tells whether it created it. A key that isn't open on failure.
    [[nodiscard]] CSettingsKey CreateKey(const CSettingsKey& parent, const QString& name,
                                         Created* created = nullptr);
    /// Makes a child again that was deleted, at the place that it had: no other key gets it meanwhile.
    [[nodiscard]] CSettingsKey MakeKeyAgain(const CSettingsKey& parent, const QString& name,
                                            std::int64_t place);
    /// Opens a child that exists; a key that isn't open when it is absent.
    [[nodiscard]] CSettingsKey OpenKey(const CSettingsKey& parent, const QString& name);
    /// Deletes a child with all below it. False also when there is none.
    [[nodiscard]] bool DeleteKey(const CSettingsKey& parent, const QString& name);
    /// Names of the children in order of creation; nothing when the key can't be read.
    [[nodiscard]] std::optional<QStringList> EnumKeys(const CSettingsKey& key);

    [[nodiscard]] std::optional<SettingsValue> ReadValue(const CSettingsKey& key, const QString& name);
    /// All values of a key at once: for a start that reads 75 of them.
    [[nodiscard]] std::optional<std::vector<std::pair<QString, SettingsValue>>> ReadValues(
        const CSettingsKey& key);
    /// Whether a read has failed since this was last asked: what wasn't found may be there all the same.
    [[nodiscard]] bool TakeReadFailure() { return std::exchange(m_hasReadFailed, false); }
    [[nodiscard]] bool WriteValue(const CSettingsKey& key, const QString& name, const SettingsValue& value);
    /// False also when there is none.
    [[nodiscard]] bool DeleteValue(const CSettingsKey& key, const QString& name);

    /// Runs the work as one change: all of it or nothing, no other program in between (BEGIN IMMEDIATE).
    /// The work returns false to undo it. Changes inside a change join it; once one of them has failed for a
    /// reason that undoes everything (a full disk), all later writes inside fail too.
    [[nodiscard]] bool Change(const std::function<bool()>& work);

    [[nodiscard]] CSqliteFile& File() { return *m_file; }

 private:
    [[nodiscard]] OpenOutcome OpenFile(const QString& path, int busySeconds);
    [[nodiscard]] bool MayPass(OpenOutcome outcome) const;
    [[nodiscard]] OpenOutcome OpenInTurn(const QString& path, int busySeconds, OpenOutcome before);
    [[nodiscard]] OpenOutcome MakeTables(OpenOutcome opened);
    [[nodiscard]] bool CheckValues(OpenOutcome opened);
    [[nodiscard]] bool Exists(const CSettingsKey& key);
    [[nodiscard]] QByteArray SelectValues(const char* columns) const;
    [[nodiscard]] std::optional<SettingsValue> CheckedValue(sqlite3_stmt* statement, int column);
    [[nodiscard]] sqlite3_stmt* Statement(const QByteArray& sql, const CSettingsKey& key,
                                          const QString& name = {});
    [[nodiscard]] bool NextRow(sqlite3_stmt* statement, bool* done = nullptr);
    bool Run(sqlite3_stmt* statement);
    void NoteFailure();

    std::unique_ptr<CSqliteFile> m_file;
    QString m_keptAside;
    QString m_error;
    QString m_reason;  ///< why the file at the path isn't used as it was found
    QStringList m_damagedValues;
    bool m_isFromFile = false;
    bool m_hasChecks = false;
    bool m_inChange = false;
    bool m_hasReadFailed = false;
    std::optional<QString> m_refusal;  ///< why changes are refused
};

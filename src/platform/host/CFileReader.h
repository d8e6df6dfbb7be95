#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <optional>

/// A file that is read in pieces, as often as wanted, by one handle: nobody can put another file in its place
/// in between.
class CFileReader {
 public:
    CFileReader() = default;
    ~CFileReader();
    CFileReader(const CFileReader&) = delete;
    CFileReader& operator=(const CFileReader&) = delete;

    /// 0, or the system's error code; EISDIR for a folder, ESPIPE for what can't be read twice.
    [[nodiscard]] int Open(const QString& path);
    /// The next bytes, so many at most; empty at the end. Nothing when they can't be read: Error says why.
    [[nodiscard]] std::optional<QByteArray> Read(std::size_t most);
    [[nodiscard]] int Error() const { return m_error; }
    /// From the beginning again.
    void Rewind() { m_place = 0; }
    /// In bytes, when it was opened.
    [[nodiscard]] std::int64_t Size() const { return m_state.size; }
    /// How many bytes were read since the beginning.
    [[nodiscard]] std::int64_t Place() const { return m_place; }
    /// Whether something has been written to the file since it was opened.
    [[nodiscard]] bool HasChanged() const;

 private:
    /// What changes when a file is written to.
    struct State {
        std::int64_t size = 0, seconds = 0, nanoseconds = 0;
        bool operator==(const State&) const = default;
    };
    [[nodiscard]] std::optional<State> Look() const;

    int m_handle = -1;
    int m_error = 0;
    std::int64_t m_place = 0;
    State m_state;
};

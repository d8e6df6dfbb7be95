#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <functional>

class QIODevice;

/// Who may read a file that we write.
enum class FileAudience { OwnerOnly /** mode 0600 */, UserDefault /** the user's umask */ };

/// How writing a whole file ended.
struct FileOutcome {
    bool written = false;  ///< whole, and sure to be there after a power cut
    QString error;         ///< what failed and what to do; empty when written
};

/// A file in the making, written piece by piece: either the old or the complete new content stands there,
/// also after a power cut. Temporary file in the same folder, every write checked, flushed and synced,
/// renamed, folder synced. A target that is a link is replaced, not followed. A folder as target is refused.
class CSafeFile {
 public:
    CSafeFile(const QString& path, FileAudience audience);
    /// Without a Finish nothing is left of what was written.
    ~CSafeFile();
    CSafeFile(const CSafeFile&) = delete;
    CSafeFile& operator=(const CSafeFile&) = delete;

    /// False once anything has failed; Finish then says what.
    [[nodiscard]] bool Write(QByteArrayView bytes);
    /// Over bytes that were written before.
    [[nodiscard]] bool WriteAt(qint64 place, QByteArrayView bytes);
    /// What failed so far, and what to do; empty when nothing has.
    [[nodiscard]] const QString& Error() const { return m_error; }

    /// Reads what was written; a text: it is wrong, and the old file stays.
    using Check = std::function<QString(QIODevice& written)>;
    /// The file takes its place. check: looks at it before, when it is on the disk.
    [[nodiscard]] FileOutcome Finish(const Check& check = {});

 private:
    bool Fail(const QString& words);
    bool FailByError();
    [[nodiscard]] bool Open(FileAudience audience);
    [[nodiscard]] bool Flush();
    [[nodiscard]] bool IsAsWanted(const Check& check);
    [[nodiscard]] bool Close();

    QString m_path;
    QByteArray m_name;       ///< of the target in its folder
    QByteArray m_temporary;  ///< empty once there is none
    int m_folder = -1;
    int m_file = -1;
    QByteArray m_gathered;  ///< not written yet
    QString m_error;
};

/// The same for content that is at hand.
[[nodiscard]] FileOutcome WriteWholeFile(const QString& path, QByteArrayView content, FileAudience audience);

// A backup file. The first byte says whether the digest is made to fit, so that the records behind it are
// reached; then follows the file.
#include "Fuzz.h"
#include "FuzzTexts.h"
#include "changes/CProgress.h"
#include "exchange/backup/CBackupReader.h"

#include <QBuffer>
#include <QCryptographicHash>

namespace {

BackupOutcome Read(const QByteArray& bytes, int& taken) {
    QBuffer file;
    file.setData(bytes);
    Demand(file.open(QIODevice::ReadOnly), "bytes can be opened");
    CNoProgress progress;
    return CBackupReader(file, progress).Read({}, [&taken](CVORec& record) {
        Demand(!record.ToBytes().isEmpty(), "a record that was read can be written");
        ++taken;
        return QString();
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LoadTexts();
    CInput input(data, size);
    const bool fits = input.Byte() != 0;
    QByteArray bytes = input.Rest();
    if (fits && bytes.size() > 16)
        bytes = QCryptographicHash::hash(bytes.mid(16), QCryptographicHash::Md5) + bytes.mid(16);
    int taken = 0;
    const BackupOutcome outcome = Read(bytes, taken);
    Demand(outcome || outcome.content.Total() == 0, "what is refused holds nothing");
    Demand(!outcome || outcome.content.Total() == taken, "every record is handed on once");
    Demand(!outcome.isCancelled, "nobody cancels");
    int again = 0;
    Demand(Read(bytes, again).error == outcome.error && again == taken, "the same bytes read the same");
    return 0;
}

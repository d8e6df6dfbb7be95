// Runs every file of a corpus through a fuzz target: what was ever found stays found, with any compiler.
#include "Fuzz.h"

#include <QDir>
#include <QFile>
#include <csignal>

namespace {

QByteArray theInput;

void ShowInput(int) {
    std::fprintf(stderr, "the input: %s\n", theInput.toHex().constData());
}

void RunBytes(const QByteArray& bytes) {
    theInput = bytes;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
}

bool Run(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    RunBytes(file.readAll());
    return true;
}

/// The file with every byte changed once, and cut at every place: near misses of a sound input.
void RunNeighbours(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > 600) return;
    const QByteArray bytes = file.readAll();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        RunBytes(bytes.left(i));
        for (const char change : {'\x01', '\x80', '\xFF'}) {
            QByteArray changed = bytes;
            changed[i] = static_cast<char>(changed[i] ^ change);
            RunBytes(changed);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGABRT, ShowInput);
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        const QDir folder(QString::fromLocal8Bit(argv[i]));
        for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
            std::printf("%s\n", qPrintable(name));
            std::fflush(stdout);
            if (!Run(folder.filePath(name))) return EXIT_FAILURE;
            RunNeighbours(folder.filePath(name));
            ++count;
        }
    }
    LLVMFuzzerTestOneInput(nullptr, 0);
    std::printf("%d inputs\n", count);
    return count > 0 ? EXIT_SUCCESS : EXIT_FAILURE;  // an empty corpus tests nothing
}

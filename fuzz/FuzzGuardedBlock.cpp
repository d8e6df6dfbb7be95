// The hexadecimal text of a block: the input as such a text, and as the content of one.
#include "Fuzz.h"
#include "records/GuardedBlock.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = CInput(data, size).Rest();
    QByteArray content;
    const QString text = QString::fromUtf8(bytes);
    if (ReadBlockText(text, content) == BlockState::Sound)
        Demand(BlockText(content) == text, "a sound text is the only one of its content");

    QString written = BlockText(bytes);
    Demand(ReadBlockText(written, content) == BlockState::Sound, "a block that was written is sound");
    Demand(content == bytes, "and has the content that it was made of");
    const qsizetype changed = bytes.size() % written.size();
    written[changed] = written[changed] == u'0' ? u'1' : u'0';
    Demand(ReadBlockText(written, content) == BlockState::BadDigest, "a changed digit is noticed");
    return 0;
}

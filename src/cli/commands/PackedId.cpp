#include "cli/commands/PackedId.h"

#include "records/CVOId.h"

#include <QByteArray>

namespace {

int ValueOf(QChar digit) {
    return digit <= u'9' ? digit.unicode() - u'0' : digit.unicode() - u'A' + 10;
}

}  // namespace

PackedId PackedOf(const QString& id) {
    PackedId packed{};
    if (!IsIdentity(id)) return packed;
    for (qsizetype i = 0; i < 16; ++i)
        packed[static_cast<std::size_t>(i)] =
            static_cast<unsigned char>(ValueOf(id[2 * i]) << 4 | ValueOf(id[2 * i + 1]));
    return packed;
}

QString UnpackedId(const PackedId& packed) {
    const QByteArray bytes(reinterpret_cast<const char*>(packed.data()), packed.size());
    return QString::fromLatin1(bytes.toHex().toUpper());
}

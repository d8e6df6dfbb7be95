// A byte stream read in any order. The first byte is the number of reads, then follows a byte for each, then
// the stream. No read goes beyond the stream, and what is broken reads as nothing.
#include "Fuzz.h"
#include "records/ByteStream.h"

namespace {

/// Whether a read gave nothing: 0 or an empty text.
bool ReadsNothing(ByteStream& stream, int form) {
    QByteArray buffer;
    switch (form % 6) {
        case 0:
            return stream.GetByte() == 0;
        case 1:
            return stream.GetInt() == 0;
        case 2:
            return stream.GetFloat() == 0.0F;
        case 3:
            return stream.GetString().isEmpty();
        case 4: {
            const QString text = stream.GetStringInto(form, true);
            Demand(text.size() <= form, "a text that is cut has its number of characters at most");
            return text.isEmpty();
        }
        default:
            return !stream.GetBuffer(buffer) && buffer.isEmpty();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CInput input(data, size);
    QByteArray forms;
    for (int count = input.Byte(); count > 0; --count) forms.append(static_cast<char>(input.Byte()));
    ByteStream stream;
    stream.Attach(input.Rest());
    for (const char form : forms) {
        const bool readsNothing = ReadsNothing(stream, static_cast<unsigned char>(form));
        if (!stream.IsBroken()) continue;
        Demand(readsNothing, "what is broken reads as nothing");
        Demand(stream.AtEnd(), "a broken stream stands at its end");
    }
    Demand(stream.Buffer() == input.Rest(), "reading changes nothing");
    stream.Rewind();
    Demand(!stream.IsBroken(), "a rewound stream is whole");
    return 0;
}

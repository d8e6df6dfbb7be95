#include "calendar/ScanText.h"

#include "calendar/Saturated.h"

#include <algorithm>
#include <charconv>

namespace {

bool IsBlank(QChar c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

bool IsFormatCharacter(QChar c) {
    return c.category() == QChar::Other_Format;
}

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// A text with the place up to which it was read.
class Reader {
 public:
    explicit Reader(QStringView text) : m_text(text) {}

    void PassBlanks() {
        while (!AtEnd() && IsBlank(Next())) ++m_at;
    }

    bool Pass(QChar wanted) {
        if (AtEnd() || Next() != wanted) return false;
        ++m_at;
        return true;
    }

    bool Read(int* out) {
        const bool isNegative = ReadSign();
        if (AtEnd() || !IsDigit(Next())) return false;
        std::int64_t value = 0;
        for (; !AtEnd() && IsDigit(Next()); ++m_at) {
            const int digit = Next().unicode() - u'0';
            value = Saturated(value * 10 + (isNegative ? -digit : digit));
        }
        *out = static_cast<int>(value);
        return true;
    }

    bool Read(float* out) { return ReadFloating(out); }
    bool Read(double* out) { return ReadFloating(out); }

    bool Read(QString* out) {
        PassBlanks();
        const qsizetype first = m_at;
        while (!AtEnd() && !IsBlank(Next())) ++m_at;
        *out = m_text.sliced(first, m_at - first).toString();
        return !out->isEmpty();
    }

 private:
    [[nodiscard]] bool AtEnd() const { return m_at == m_text.size(); }
    [[nodiscard]] QChar Next() const { return m_text[m_at]; }

    bool ReadSign() {
        PassBlanks();
        return !Pass(u'+') && Pass(u'-');
    }

    template <class Number>
    bool ReadFloating(Number* out) {
        const bool isNegative = ReadSign();
        const qsizetype first = m_at;
        const auto isPart = [](QChar c) { return IsDigit(c) || QStringView(u".+-eE").contains(c); };
        while (!AtEnd() && isPart(Next())) ++m_at;
        const QByteArray digits = m_text.sliced(first, m_at - first).toLatin1();
        if (digits.isEmpty() || digits[0] == '-' || IsHexadecimal(digits)) return false;
        Number value = 0;
        const auto [stop, error] = std::from_chars(digits.begin(), digits.end(), value);
        if (error != std::errc()) return false;
        m_at = first + (stop - digits.begin());
        *out = isNegative ? -value : value;
        return true;
    }

    /// "0x1F": what was collected is the 0 in front.
    [[nodiscard]] bool IsHexadecimal(const QByteArray& digits) const {
        return digits == "0" && !AtEnd() && (Next() == u'x' || Next() == u'X');
    }

    QStringView m_text;
    qsizetype m_at = 0;
};

/// What kind of target a form of the format asks for, as the index in ScanTarget; -1 for an unknown form.
/// Moves at past the form.
int TargetKind(QStringView format, qsizetype& at) {
    struct Form {
        QStringView letters;
        int kind;
    };
    static constexpr Form kForms[] = {{u"d", 0}, {u"f", 1}, {u"lf", 2}, {u"s", 3}};
    for (const Form& form : kForms) {
        if (!format.sliced(at).startsWith(form.letters)) continue;
        at += form.letters.size();
        return form.kind;
    }
    return -1;
}

}  // namespace

int ScanText(const QString& format, const QString& text, std::initializer_list<ScanTarget> targets) {
    const QString visible = WithoutFormatCharacters(text);
    Reader reader(visible);
    const ScanTarget* target = targets.begin();
    for (qsizetype at = 0; at < format.size();) {
        const QChar c = format[at++];
        if (IsBlank(c)) {
            reader.PassBlanks();
        } else if (c != u'%') {
            if (!reader.Pass(c)) break;
        } else {
            const int kind = TargetKind(format, at);
            if (target == targets.end() || kind != static_cast<int>(target->index())) break;
            if (!std::visit([&reader](auto* out) { return reader.Read(out); }, *target)) break;
            ++target;
        }
    }
    return static_cast<int>(target - targets.begin());
}

QString WithoutFormatCharacters(const QString& text) {
    if (std::none_of(text.begin(), text.end(), IsFormatCharacter)) return text;
    QString visible = text;
    return visible.removeIf(IsFormatCharacter);
}

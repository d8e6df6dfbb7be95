#include "reports/query/QueryContent.h"

#include "lang/LoadText.h"

#include <QtEndian>
#include <cmath>
#include <cstdint>

namespace {

/// How a mark is asked for in the dialog of time records: by one of three texts.
struct FlagTexts {
    Text set;
    Text clear;
};
constexpr FlagTexts kBillable{Text::TreeBillable, Text::TreeNotBillable};
constexpr FlagTexts kBilled{Text::TreeBilled, Text::TreeNotBilled};

/// How a check box of three states is stored: any is 2.
constexpr std::int32_t kThirdState = 2;

template <class Number>
QByteArray BytesOf(Number number) {
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

template <class Number>
std::optional<Number> NumberOfBytes(const QByteArray* bytes) {
    if (!bytes || bytes->size() != sizeof(Number)) return std::nullopt;
    return qFromLittleEndian<Number>(bytes->constData());
}

/// Writes each value.
struct Writer {
    EntryContent content{};

    void String(Text name, const QString& value) { content.Add(LoadText(name), value); }
    void Float(Text name, float value) { content.Add(LoadText(name), BytesOf(value)); }
    void Row(Text name, int value) { content.Add(LoadText(name), BytesOf(std::int32_t{value})); }
    void Comparison(Text name, int value) { Row(name, value); }
    void Flag(Text name, int value) { Row(name, value == FlagCriterion::kAny ? kThirdState : value); }
    void Token(Text name, bool value) { String(name, LoadText(value ? Text::TokenOn : Text::TokenOff)); }
    void FlagText(Text name, int value, const FlagTexts& texts) {
        if (value == FlagCriterion::kAny) return String(name, LoadText(Text::AnyWord));
        String(name, LoadText(value == FlagCriterion::kSet ? texts.set : texts.clear));
    }
};

/// Reads each value; isGood ends as false when one of them can't be read.
struct Reader {
    const EntryContent& content;
    bool isGood = true;

    template <class Value>
    void Take(Value& value, const std::optional<Value>& read) {
        isGood = isGood && read;
        if (read) value = *read;
    }
    [[nodiscard]] std::optional<QString> TextOf(Text name) const {
        const QString* text = content.FindText(LoadText(name));
        return text ? std::optional(*text) : std::nullopt;
    }
    [[nodiscard]] std::optional<std::int32_t> IntOf(Text name) const {
        return NumberOfBytes<std::int32_t>(content.FindBytes(LoadText(name)));
    }

    void String(Text name, QString& value) { Take(value, TextOf(name)); }
    void Float(Text name, float& value) {
        const auto read = NumberOfBytes<float>(content.FindBytes(LoadText(name)));
        Take(value, read && std::isfinite(*read) ? read : std::nullopt);
    }
    void Row(Text name, int& value) { Take(value, IntOf(name)); }
    void Comparison(Text name, int& value) {
        const auto read = IntOf(name);
        const bool isKnown = read && *read >= AmountComparison::kLess && *read <= AmountComparison::kEqual;
        Take(value, isKnown ? read : std::nullopt);
    }
    void Flag(Text name, int& value) {
        const auto read = IntOf(name);
        if (read == kThirdState) return Take(value, std::optional(FlagCriterion::kAny));
        const bool isKnown = read && (*read == FlagCriterion::kSet || *read == FlagCriterion::kClear);
        Take(value, isKnown ? read : std::nullopt);
    }
    void Token(Text name, bool& value) {
        const auto read = TextOf(name);
        const bool isOn = read == LoadText(Text::TokenOn);
        Take(value, isOn || read == LoadText(Text::TokenOff) ? std::optional(isOn) : std::nullopt);
    }
    void FlagText(Text name, int& value, const FlagTexts& texts) {
        const auto read = TextOf(name);
        if (read == LoadText(Text::AnyWord)) return Take(value, std::optional(FlagCriterion::kAny));
        if (read == LoadText(texts.set)) return Take(value, std::optional(FlagCriterion::kSet));
        Take(value, read == LoadText(texts.clear) ? std::optional(FlagCriterion::kClear) : std::nullopt);
    }
};

/// The values of a time query in their order.
template <class Exchange, class Query>
void ExchangeTime(Exchange& exchange, Query& query) {
    exchange.String(Text::ValueTimeItem1, query.items[0]);
    exchange.String(Text::ValueTimeItem2, query.items[1]);
    exchange.String(Text::ValueTimeItem3, query.items[2]);
    exchange.String(Text::ValueTimeItem4, query.items[3]);
    exchange.FlagText(Text::ValueBillable, query.billable, kBillable);
    exchange.FlagText(Text::ValueBilled, query.billed, kBilled);
    exchange.String(Text::ValueTimeStart, query.startText);
    exchange.String(Text::ValueTimeEnd, query.endText);
    exchange.String(Text::ValueTimeItem5, query.items[4]);
    exchange.Token(Text::ValueTimeCase, query.matchCase);
    exchange.Token(Text::ValueTimeWhole, query.matchWhole);
    exchange.Token(Text::ValueTimePeriod, query.isPeriodOn);
    exchange.Row(Text::ValueTimePeriodRow, query.periodRow);
}

/// The values of an expense query in their order.
template <class Exchange, class Query>
void ExchangeExpense(Exchange& exchange, Query& query) {
    exchange.String(Text::ValueExpenseItem1, query.items[0]);
    exchange.String(Text::ValueExpenseItem2, query.items[1]);
    exchange.String(Text::ValueExpenseItem3, query.items[2]);
    exchange.String(Text::ValueExpenseItem4, query.items[3]);
    exchange.String(Text::ValueExpenseItem5, query.items[4]);
    exchange.Float(Text::ValueAmount, query.amount);
    exchange.Comparison(Text::ValueComparison, query.comparison);
    exchange.Flag(Text::ValueDistance, query.distance);
    exchange.Flag(Text::ValueFlag1, query.flags[0]);
    exchange.Flag(Text::ValueFlag2, query.flags[1]);
    exchange.Flag(Text::ValueFlag3, query.flags[2]);
    exchange.Flag(Text::ValueFlag4, query.flags[3]);
    exchange.Flag(Text::ValueFlag5, query.flags[4]);
    exchange.String(Text::ValueExpenseStart, query.startText);
    exchange.String(Text::ValueExpenseEnd, query.endText);
    exchange.Token(Text::ValueExpenseCase, query.matchCase);
    exchange.Token(Text::ValueExpenseWhole, query.matchWhole);
    exchange.Token(Text::ValueExpensePeriod, query.isPeriodOn);
    exchange.Row(Text::ValueExpensePeriodRow, query.periodRow);
}

}  // namespace

EntryContent ContentOf(const TimeQuery& query) {
    Writer writer;
    ExchangeTime(writer, query);
    return writer.content;
}

EntryContent ContentOf(const ExpenseQuery& query) {
    Writer writer;
    ExchangeExpense(writer, query);
    return writer.content;
}

std::optional<TimeQuery> TimeQueryOf(const EntryContent& content) {
    Reader reader{content};
    TimeQuery query;
    ExchangeTime(reader, query);
    return reader.isGood ? std::optional(query) : std::nullopt;
}

std::optional<ExpenseQuery> ExpenseQueryOf(const EntryContent& content) {
    Reader reader{content};
    ExpenseQuery query;
    ExchangeExpense(reader, query);
    return reader.isGood ? std::optional(query) : std::nullopt;
}

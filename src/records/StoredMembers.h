#pragma once

#include "records/ByteStream.h"
#include "records/ColumnSet.h"
#include "records/FieldDef.h"
#include "records/FieldValues.h"
#include "records/RowAccess.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

/// The stored members of a record class stand in one table, a tuple of these parts in the order of the
/// columns. Columns, rows, bytes and copies are walked from it when the program is compiled. A part knows its
/// columns and its place among the bytes, from 1; no place: it isn't among them.
namespace Stored {

inline constexpr int kNotInBytes = 0;

/// Most records take no more as bytes.
inline constexpr qsizetype kUsualBytes = 768;

template <auto Member>
struct Number {
    static constexpr auto kMember = Member;
    Text column;
    int place;
    [[nodiscard]] constexpr std::array<FieldDef, 1> Defs() const { return {FieldDef::Int(column)}; }
    static void Put(const auto& record, auto& out) { out.PutInt(record.*Member); }
    static void TakeRow(auto& record, auto& row) { record.*Member = row.Int(); }
    static void TakeBytes(auto& record, ByteStream& stream, bool) { record.*Member = stream.GetInt(); }
    static void Copy(auto& record, const auto& other) { record.*Member = other.*Member; }
};

template <auto Member>
struct Flag {
    static constexpr auto kMember = Member;
    Text column;
    int place;
    [[nodiscard]] constexpr std::array<FieldDef, 1> Defs() const { return {FieldDef::Int(column)}; }
    static void Put(const auto& record, RowWriter& out) { out.PutFlag(record.*Member); }
    static void Put(const auto& record, ByteStream& out) { out.PutByte(record.*Member); }
    static void TakeRow(auto& record, auto& row) { record.*Member = row.Flag(); }
    static void TakeBytes(auto& record, ByteStream& stream, bool) { record.*Member = stream.GetByte() != 0; }
    static void Copy(auto& record, const auto& other) { record.*Member = other.*Member; }
};

/// A short text, which records share where it repeats.
template <auto Member>
struct Item {
    static constexpr auto kMember = Member;
    static constexpr auto kItem = Member;
    Text column;
    int place;
    [[nodiscard]] constexpr std::array<FieldDef, 1> Defs() const { return {FieldDef::Str(column)}; }
    static void Put(const auto& record, RowWriter& out) { out.PutText(record.*Member); }
    static void Put(const auto& record, ByteStream& out) { out.PutString(record.*Member); }
    static void TakeRow(auto& record, auto& row) { record.*Member = row.Text(); }
    static void TakeBytes(auto& record, ByteStream& stream, bool ansi) {
        record.*Member = stream.GetString(ansi);
    }
    static void Copy(auto& record, const auto& other) { record.*Member = other.*Member; }
};

template <auto Member>
struct LongText {
    static constexpr auto kMember = Member;
    Text column;
    int place;
    [[nodiscard]] constexpr std::array<FieldDef, 1> Defs() const { return {FieldDef::Long(column)}; }
    static void Put(const auto& record, RowWriter& out) { out.PutText(record.*Member); }
    static void Put(const auto& record, ByteStream& out) { out.PutString(record.*Member); }
    static void TakeRow(auto& record, auto& row) { record.*Member = row.LongText(); }
    static void TakeBytes(auto& record, ByteStream& stream, bool ansi) {
        record.*Member = stream.GetString(ansi);
    }
    static void Copy(auto& record, const auto& other) { record.*Member = other.*Member; }
};

/// A rate or an amount. Setting it rounds it to the record's own places, copying too.
template <auto Member>
struct Money {
    static constexpr auto kMember = Member;
    Text column;
    int place;
    [[nodiscard]] constexpr std::array<FieldDef, 1> Defs() const { return {FieldDef::Real(column)}; }
    static void Put(const auto& record, auto& out) { out.PutFloat((record.*Member).value); }
    static void TakeRow(auto& record, auto& row) { (record.*Member).Set(row.Float()); }
    static void TakeBytes(auto& record, ByteStream& stream, bool) { (record.*Member).Set(stream.GetFloat()); }
    static void Copy(auto& record, const auto& other) { (record.*Member).Copy(other.*Member); }
};

template <auto Member>
struct Day {
    static constexpr auto kMember = Member;
    Text month, day, year;
    int place;
    [[nodiscard]] constexpr std::array<FieldDef, 3> Defs() const {
        return {FieldDef::Int(month), FieldDef::Int(day), FieldDef::Int(year)};
    }
    static void Put(const auto& record, auto& out) {
        out.PutInt((record.*Member).month);
        out.PutInt((record.*Member).day);
        out.PutInt((record.*Member).year);
    }
    static void TakeRow(auto& record, auto& row) {
        const int newMonth = row.Int();
        const int newDay = row.Int();
        (record.*Member).Set(newMonth, newDay, row.Int());
    }
    static void TakeBytes(auto& record, ByteStream& stream, bool) {
        const int newMonth = stream.GetInt();
        const int newDay = stream.GetInt();
        (record.*Member).Set(newMonth, newDay, stream.GetInt());
    }
    static void Copy(auto& record, const auto& other) { (record.*Member).Copy(other.*Member); }
};

/// The identity is the last column of every table and travels beside the bytes, not among them.
struct Identity {
    int place = kNotInBytes;
    [[nodiscard]] static constexpr std::array<FieldDef, 1> Defs() {
        return {FieldDef::Key(Text::ColumnIdentity)};
    }
    static void Put(const auto& record, RowWriter& out) { out.PutText(record.GetId()); }
    static void TakeRow(auto& record, auto& row) { record.SetId(row.Key()); }
    static void Copy(auto& record, const auto& other) { record.SetId(other.GetId()); }
};

// --- Walking a table

/// The columns of a table in their order.
template <class... Parts>
[[nodiscard]] constexpr auto FieldDefsOf(const std::tuple<Parts...>& table) {
    std::array<FieldDef, (... + std::tuple_size_v<decltype(std::declval<Parts>().Defs())>)> defs{};
    auto next = defs.begin();
    std::apply([&next](const auto&... parts) { ((next = std::ranges::copy(parts.Defs(), next).out), ...); },
               table);
    return defs;
}

/// How many parts are among the bytes; 0 when their places aren't 1, 2, 3 and so on.
template <class... Parts>
[[nodiscard]] constexpr std::size_t CountInBytes(const std::tuple<Parts...>& table) {
    std::array<int, sizeof...(Parts)> places = std::apply(
        [](const auto&... parts) { return std::array<int, sizeof...(Parts)>{parts.place...}; }, table);
    std::ranges::sort(places);
    const auto first = std::ranges::upper_bound(places, kNotInBytes);
    for (auto place = first; place != places.end(); ++place)
        if (*place != place - first + 1) return 0;
    return static_cast<std::size_t>(places.end() - first);
}

/// Which part of the table has which place among the bytes.
template <const auto& Table>
[[nodiscard]] constexpr auto OrderOfBytes() {
    static_assert(CountInBytes(Table) > 0, "the places among the bytes are 1, 2, 3 and so on");
    std::array<std::size_t, CountInBytes(Table)> order{};
    std::size_t part = 0;
    const auto put = [&](int place) {
        if (place != kNotInBytes) order[static_cast<std::size_t>(place - 1)] = part;
        ++part;
    };
    std::apply([&put](const auto&... parts) { (put(parts.place), ...); }, Table);
    return order;
}

template <const auto& Table>
inline constexpr auto kOrderOfBytes = OrderOfBytes<Table>();

template <const auto& Table, class Work>
void ForEach(Work&& work) {
    std::apply([&work](const auto&... parts) { (work(parts), ...); }, Table);
}

template <const auto& Table, class Work>
void ForEachInBytes(Work&& work) {
    [&work]<std::size_t... Place>(std::index_sequence<Place...>) {
        (work(std::get<kOrderOfBytes<Table>[Place]>(Table)), ...);
    }
    (std::make_index_sequence<kOrderOfBytes<Table>.size()>());
}

/// The column of a short text; no text: the member isn't one.
template <const auto& Table, class Record>
[[nodiscard]] Text ColumnOf(QString Record::*item) {
    Text column{};
    ForEach<Table>([&]<class Part>(const Part& part) {
        if constexpr (requires { Part::kItem; })
            if (Part::kItem == item) column = part.column;
    });
    return column;
}

/// The columns of a member.
template <const auto& Table, class Pointer>
[[nodiscard]] ColumnSet ColumnsOf(Pointer member) {
    ColumnSet columns = 0;
    std::size_t next = 0;
    ForEach<Table>([&]<class Part>(const Part&) {
        constexpr std::size_t kCount = std::tuple_size_v<decltype(std::declval<Part>().Defs())>;
        if constexpr (requires { requires std::is_same_v<const Pointer, decltype(Part::kMember)>; })
            if (Part::kMember == member) columns |= ((ColumnSet{1} << kCount) - 1) << next;
        next += kCount;
    });
    return columns;
}

template <const auto& Table>
[[nodiscard]] bool Write(const auto& record, CVORecordset& row, std::span<const FieldDef> defs) {
    RowWriter out(row, defs);
    ForEach<Table>([&](const auto& part) { part.Put(record, out); });
    return out.AllSet();
}

template <const auto& Table>
void TakeRow(auto& record, auto& row) {
    ForEach<Table>([&](const auto& part) { part.TakeRow(record, row); });
}

/// Of a row that has some of the columns alone, in their order: what belongs to others stays as it is.
template <const auto& Table>
void TakeColumns(auto& record, auto& row, ColumnSet columns) {
    std::size_t next = 0;
    ForEach<Table>([&]<class Part>(const Part& part) {
        if ((columns >> next & 1U) != 0) part.TakeRow(record, row);
        next += std::tuple_size_v<decltype(std::declval<Part>().Defs())>;
    });
}

template <const auto& Table>
[[nodiscard]] QByteArray Bytes(const auto& record) {
    ByteStream stream;
    stream.Reserve(kUsualBytes);
    ForEachInBytes<Table>([&](const auto& part) { part.Put(record, stream); });
    return stream.Release();
}

/// False for bytes that end too early.
template <const auto& Table>
[[nodiscard]] bool TakeBytes(auto& record, const QByteArray& bytes, bool ansi) {
    if (bytes.isNull()) return false;
    ByteStream stream;
    stream.Attach(bytes);
    ForEachInBytes<Table>([&](const auto& part) { part.TakeBytes(record, stream, ansi); });
    return !stream.IsBroken();
}

template <const auto& Table>
void Copy(auto& record, const auto& other) {
    ForEach<Table>([&](const auto& part) { part.Copy(record, other); });
}

}  // namespace Stored

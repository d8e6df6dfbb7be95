#pragma once

#include "exchange/import/RecordLine.h"
#include "records/FieldDef.h"
#include "records/RowConditions.h"

#include <array>
#include <functional>
#include <optional>
#include <vector>

class CRecordStore;
class CVORec;
class RowTable;

/// What is stored of a kind of records at one moment, to tell which lines of a text hold nothing new. A few
/// bytes for each record.
class CStoredContents {
 public:
    static constexpr std::size_t kPiece = 5000;  ///< so many records are read at a time, or a few more

    CStoredContents(RecordKind kind, RecordForm form) : m_kind(kind), m_form(form) {}

    enum class ReadEnd {
        Complete,
        Failed,  ///< the records can't be read; the user was told
        Cancelled
    };
    /// By their days. advance is called before each piece, while the store is free; false of it: the user
    /// cancels. Empty: nobody does.
    [[nodiscard]] ReadEnd Read(CRecordStore& store, const std::function<bool()>& advance = {});
    /// Whether a stored record is equal in every field that lines of the form carry.
    [[nodiscard]] bool Holds(const CVORec& record) const;

 private:
    using Digest = std::array<char, 16>;
    /// From a day on; day: where the next piece begins, none behind the last.
    [[nodiscard]] bool ReadDays(CRecordStore& store, std::optional<RowDay>& day);
    void TakeRows(const RowTable& rows, std::size_t enough, std::optional<RowDay>& next);
    [[nodiscard]] Digest DigestOf(const CVORec& record) const;

    RecordKind m_kind;
    RecordForm m_form;
    RowDay m_lastDay{};             ///< of the record that was read last
    std::vector<Digest> m_digests;  ///< ascending
};

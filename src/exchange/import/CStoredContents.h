#pragma once

#include "exchange/import/RecordLine.h"
#include "records/FieldDef.h"

#include <array>
#include <vector>

class CRecordStore;
class CVORec;

/// What is stored of a kind of records at one moment, to tell which lines of a text hold nothing new. A few
/// bytes for each record.
class CStoredContents {
 public:
    CStoredContents(RecordKind kind, RecordForm form) : m_kind(kind), m_form(form) {}

    /// False when the records can't be read; the user was told.
    [[nodiscard]] bool Read(CRecordStore& store);
    /// Whether a stored record is equal in every field that lines of the form carry.
    [[nodiscard]] bool Holds(const CVORec& record) const;

 private:
    using Digest = std::array<char, 16>;
    [[nodiscard]] Digest DigestOf(const CVORec& record) const;

    RecordKind m_kind;
    RecordForm m_form;
    std::vector<Digest> m_digests;  ///< ascending
};

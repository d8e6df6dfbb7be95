#pragma once

#include "platform/host/CBeside.h"
#include "records/CStoreTable.h"
#include "records/CStoredRows.h"

#include <array>
#include <cstddef>
#include <memory>
#include <span>

class CSqliteFile;

/// Adds rows to the tables of one transaction: a thread of its own puts them into the file, a piece at a
/// time, while the next piece is made. While rows are under way nobody else uses the file.
///
/// A row that can't be added undoes the whole transaction, as those behind it may be under way already.
class CBulkInsert {
 public:
    /// The file must outlive it.
    explicit CBulkInsert(CSqliteFile& file) : m_file(file) {}
    ~CBulkInsert() { static_cast<void>(Settle()); }
    CBulkInsert(const CBulkInsert&) = delete;
    CBulkInsert& operator=(const CBulkInsert&) = delete;

    /// In the transaction that is open. False when one of the rows so far can't be added: the file has noted
    /// why.
    [[nodiscard]] bool Add(const std::shared_ptr<const CStoreTable>& table, std::span<const VARIANT> values);
    /// Until all rows are in the file; false as with Add.
    [[nodiscard]] bool Settle();
    /// Rows are made or under way: the transaction is open, as far as is known.
    [[nodiscard]] bool IsBusy() const { return m_isUnderWay || m_pieces[m_made].Count() > 0; }

 private:
    [[nodiscard]] bool HandOver();
    [[nodiscard]] bool Begin();
    [[nodiscard]] bool Finish();
    bool GiveUp();

    CSqliteFile& m_file;
    std::shared_ptr<const CStoreTable> m_table;  ///< of all rows that are made or under way
    std::array<CStoredRows, 3> m_pieces;         ///< one that is made, and two that wait or are under way
    std::size_t m_made = 0;
    bool m_isUnderWay = false;
    CStoreTable::Adding m_adding;
    CBeside m_beside;  ///< has m_adding and two of the pieces; ends before them
};

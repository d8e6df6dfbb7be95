#pragma once

#include "app/DependencySet.h"

#include <QByteArray>

class CRecordStore;

/// What the store has of one set of dependencies.
struct StoredTree {
    enum class State {
        None,     ///< nothing
        Current,  ///< a root row with the identities of chunks
        Old,      ///< a single packed row; to be written in the current form
        Damaged,  ///< rows that don't fit together or can't be decoded; the user was told of an undecodable
                  ///< one
        Failed    ///< the store can't be read; the user was told
    };
    State state = State::None;
    QByteArray bytes;
};

/// How the two sets of dependencies lie in the store. In the current form a root row under a fixed identity
/// holds the identities of chunks, end to end, and each chunk up to 15984 bytes of the tree. In the old form
/// one packed row holds it all.
class DependencyStore {
 public:
    explicit DependencyStore(CRecordStore& store) : m_store(store) {}

    /// The fixed identities of a set's root rows.
    [[nodiscard]] static QString RootId(DependencySet set);
    [[nodiscard]] static QString OldRootId(DependencySet set);

    [[nodiscard]] StoredTree Read(DependencySet set);
    /// In the current form, as part of the open transaction. False, and the user told, when a row can't be
    /// written.
    [[nodiscard]] bool Put(DependencySet set, const QByteArray& bytes);
    /// As one change of its own: on failure the store is as it was.
    [[nodiscard]] bool Save(DependencySet set, const QByteArray& bytes);

 private:
    [[nodiscard]] StoredTree ReadOld(DependencySet set);
    [[nodiscard]] StoredTree ReadChunks(const QByteArray& ids);
    [[nodiscard]] StoredTree NotRead() const;
    [[nodiscard]] bool PutRoot(DependencySet set, const QByteArray& chunkIds);
    [[nodiscard]] bool PutChunks(DependencySet set, const QByteArray& chunkIds, const QByteArray& bytes);

    CRecordStore& m_store;
};

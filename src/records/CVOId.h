#pragma once

#include <QString>

/// The identity of a record: 32 upper-case hexadecimal digits, 128 bits; empty when new.
class CVOId {
 public:
    CVOId() = default;
    virtual ~CVOId() = default;
    CVOId(const CVOId&) = default;
    CVOId& operator=(const CVOId&) = default;

    /// A new identity: 48 bits of time in milliseconds, then random bits, so that identities ascend with time
    /// and the store's key tree grows at its end. Later calls of one process always give a greater one.
    void GenUnique();
    [[nodiscard]] const QString& GetId() const { return m_id; }
    void SetId(const QString& id) { m_id = id; }
    [[nodiscard]] bool operator==(const QString& id) const { return m_id == id; }

 private:
    QString m_id;
};

/// True for exactly 32 upper-case hexadecimal digits: only such an identity goes into a statement.
[[nodiscard]] bool IsIdentity(const QString& text);

#pragma once

#include <QString>
#include <cstdint>
#include <memory>

class CVORec;
struct Settings;

/// What a summary counts or adds up of records.
class ReportColumn {
 public:
    explicit ReportColumn(const QString& columnCaption) : caption(columnCaption) {}
    virtual ~ReportColumn() = default;
    ReportColumn& operator=(const ReportColumn&) = delete;

    QString caption;  ///< as the page has it, with the blanks in front of it

    /// One of the same kind with the same caption that has counted nothing.
    [[nodiscard]] virtual std::unique_ptr<ReportColumn> Clone() const = 0;
    /// A null record adds nothing.
    virtual void Add(const CVORec* record) = 0;
    [[nodiscard]] virtual QString Text() const = 0;
    [[nodiscard]] virtual double Value() const = 0;
    /// Decimal places of the value; below 0: a count.
    [[nodiscard]] virtual int Places() const = 0;

 protected:
    ReportColumn(const ReportColumn&) = default;
};

/// Counts records.
class ColEntries : public ReportColumn {
 public:
    using ReportColumn::ReportColumn;
    std::int32_t count = 0;

    [[nodiscard]] std::unique_ptr<ReportColumn> Clone() const override;
    void Add(const CVORec* record) override;
    [[nodiscard]] QString Text() const override;
    [[nodiscard]] double Value() const override { return count; }
    [[nodiscard]] int Places() const override { return -1; }
};

/// Counts expenses that are no distance entries.
class ColEntriesExpense final : public ColEntries {
 public:
    using ColEntries::ColEntries;
    [[nodiscard]] std::unique_ptr<ReportColumn> Clone() const override;
    void Add(const CVORec* record) override;
};

/// Counts distance entries.
class ColEntriesMileage final : public ColEntries {
 public:
    using ColEntries::ColEntries;
    [[nodiscard]] std::unique_ptr<ReportColumn> Clone() const override;
    void Add(const CVORec* record) override;
};

/// Adds up, and shows the sum with decimal places of the settings.
class ColSum : public ReportColumn {
 public:
    ColSum(const QString& columnCaption, int places) : ReportColumn(columnCaption), m_places(places) {}
    double total = 0.0;

    [[nodiscard]] QString Text() const override;
    [[nodiscard]] double Value() const override { return total; }
    [[nodiscard]] int Places() const override { return m_places; }

 private:
    int m_places;
};

class ColDuration final : public ColSum {
 public:
    using ColSum::ColSum;
    [[nodiscard]] std::unique_ptr<ReportColumn> Clone() const override;
    void Add(const CVORec* record) override;
};

class ColBreak final : public ColSum {
 public:
    using ColSum::ColSum;
    [[nodiscard]] std::unique_ptr<ReportColumn> Clone() const override;
    void Add(const CVORec* record) override;
};

/// The net time of records with a duration. It is the duration that is looked at, and that is wanted: a
/// record without one adds nothing, even if it holds a net time.
class ColEffective final : public ColSum {
 public:
    using ColSum::ColSum;
    [[nodiscard]] std::unique_ptr<ReportColumn> Clone() const override;
    void Add(const CVORec* record) override;
};

/// Amounts as they are: one below zero of an expense is added too, though a grouped table counts it as none.
class ColAmount : public ColSum {
 public:
    using ColSum::ColSum;
    [[nodiscard]] std::unique_ptr<ReportColumn> Clone() const override;
    void Add(const CVORec* record) override;
};

class ColAmountExpense final : public ColAmount {
 public:
    using ColAmount::ColAmount;
    [[nodiscard]] std::unique_ptr<ReportColumn> Clone() const override;
    void Add(const CVORec* record) override;
};

class ColAmountMileage final : public ColAmount {
 public:
    using ColAmount::ColAmount;
    [[nodiscard]] std::unique_ptr<ReportColumn> Clone() const override;
    void Add(const CVORec* record) override;
};

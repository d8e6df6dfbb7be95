#pragma once

#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"
#include "support/TestHome.h"

#include <QTest>

/// A home with its document in one of the modes, so that the tests of the document run in both: their
/// records are of the mode's kind, in November 2026.
struct DocumentFixture {
    explicit DocumentFixture(RecordMode recordMode) : mode(recordMode) {}
    /// A second program on the home of a first.
    DocumentFixture(RecordMode recordMode, const QString& folder) : home(folder), mode(recordMode) {}

    TestHome home;
    RecordModeScope mode;
    CVelmarchDoc* document = home.document.get();
    const RecordKind kind = KindOf(theRecordMode);
    const RecordKind otherKind = kind == RecordKind::Time ? RecordKind::Expense : RecordKind::Time;

    /// One row per mode, for the whole of a test class.
    static void AddModes() {
        QTest::addColumn<RecordMode>("mode");
        QTest::newRow("time") << RecordMode::Time;
        QTest::newRow("expenses") << RecordMode::Expense;
    }

    QString Add(const CVORec& record) {
        QString id;
        if (!document->AddRecord(record, {Notify::Later, Commit::Now}, &id))
            qFatal("a record can't be added");
        document->FlushPending(Hint::Added);
        home.views.seen.clear();
        return id;
    }
    QString AddOnDay(int day, const QString& item1 = {}) { return Add(*OnDay(day, item1)); }
    /// So many records of a kind in one transaction; the identity of the last.
    QString AddMany(int count, RecordKind ofKind) {
        QString id;
        for (int i = 0; i < count; ++i)
            if (!document->AddRecord(*OnDay(1 + i % 28, {}, ofKind), {Notify::Later, Commit::Later}, &id))
                qFatal("a record can't be added");
        if (count > 0 && !home.store->Commit()) qFatal("the records can't be stored");
        document->FlushPending(Hint::Added);
        home.views.seen.clear();
        return id;
    }

    void ShowOnlyDay(int day) {
        document->CurrentFilter().SetSingleDate(DayText(day), document->GetPeriodContext());
        document->BuildVisible();
    }
    void Reload() {
        document->LoadCurrentMode();
        document->BuildVisible();
        home.views.seen.clear();
    }
    [[nodiscard]] bool Execute(const QString& statement) {
        return home.manager.File().Execute(statement.arg(home.store->TableName(kind)).toUtf8().constData());
    }
    /// The table gets a column that no record knows: the bulk path refuses such rows.
    void SpoilBulkPath() { QVERIFY(Execute(QStringLiteral("ALTER TABLE %1 ADD COLUMN extra"))); }

    /// The hints so far as "14 A, 1 A", with the letters of the identities in order of their naming; forgets
    /// them.
    QString Hints(const QStringList& ids = {}) {
        QStringList told;
        for (const auto& [hint, carried] : home.views.seen) {
            QString one = QString::number(static_cast<int>(hint));
            for (const QString& id : carried)
                one += u' ' + QChar(static_cast<char16_t>(u'A' + ids.indexOf(id)));
            told.append(one);
        }
        home.views.seen.clear();
        return told.join(QStringLiteral(", "));
    }
    /// The first items of the visible records, in alphabetical order.
    [[nodiscard]] QStringList VisibleItems() const {
        QStringList items;
        document->ForEachVisible([&items](const CVORec& record) { items.append(Item1Of(&record)); });
        items.sort();
        return items;
    }
    [[nodiscard]] QString Item1(const QString& id) const { return Item1Of(document->FindRecord(id)); }

    [[nodiscard]] std::unique_ptr<CVORec> OnDay(int day, const QString& item1 = {}) const {
        return OnDay(day, item1, kind);
    }
    [[nodiscard]] static std::unique_ptr<CVORec> OnDay(int day, const QString& item1, RecordKind ofKind) {
        std::unique_ptr<CVORec> record = NewRecord(ofKind);
        record->GenUnique();
        Put(*record, day, item1);
        return record;
    }
    /// A record of the document on another day with another item.
    [[nodiscard]] std::unique_ptr<CVORec> Changed(const QString& id, int day, const QString& item1) const {
        std::unique_ptr<CVORec> record = CVelmarchDoc::CloneRecord(*document->FindRecord(id));
        Put(*record, day, item1);
        return record;
    }
    static void Put(CVORec& record, int day, const QString& item1) {
        const auto put = [day, &item1](auto& known) {
            known.date.Set(11, day, 2026);
            known.item1 = item1;
        };
        if (record.Kind() == RecordKind::Time)
            put(static_cast<CTRecord&>(record));
        else
            put(static_cast<CERecord&>(record));
    }
    [[nodiscard]] static QString Item1Of(const CVORec* record) {
        if (!record) return QStringLiteral("absent");
        return record->Kind() == RecordKind::Time ? static_cast<const CTRecord*>(record)->item1
                                                  : static_cast<const CERecord*>(record)->item1;
    }
    [[nodiscard]] static QString DayText(int day) { return QStringLiteral("11/%1/2026").arg(day); }
    /// What no item can hold: one character more than the column.
    [[nodiscard]] static QString TooLong() { return QString(256, u'x'); }
};

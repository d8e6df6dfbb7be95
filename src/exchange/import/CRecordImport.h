#pragma once

#include "app/CPulldownCatalogue.h"
#include "changes/CRecordChanges.h"
#include "exchange/import/CRecordLines.h"
#include "exchange/import/CStoredContents.h"
#include "exchange/text/CTextFile.h"
#include "records/TextAddressCache.h"

#include <QSet>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

/// What is imported, and how.
struct ImportRequest {
    RecordKind kind;
    LineForm form;
    QByteArray encoding = {};  ///< empty: as found
    bool addListItems = true;  ///< whether the values of records go into the pick lists
    bool skipDuplicates = false;
    QStringList distances = {};  ///< the items of the list of distances
};

/// A value that isn't read as it is written, and where it stands.
struct MisreadLine {
    int number;  ///< of the line in its file, from 1
    Misreading value;
};

/// What an import will do with a file.
struct ImportPlan {
    enum class End {
        Complete,
        Aborted,  ///< at the last of the refused lines, as the user wanted
        Failed,   ///< the file can't be read on
        Undecodable,
        Cancelled
    };
    End end = End::Complete;
    int lastLine = 0;  ///< that was looked at, from 1
    int records = 0;   ///< that will be added
    int duplicates = 0;
    std::vector<RefusedLine> refused;
    int misreadCount = 0;  ///< values of the records to be added that aren't read as they are written
    std::vector<MisreadLine> misread;              ///< the first of them
    std::vector<ListText> listTexts;               ///< each once
    std::vector<std::unique_ptr<CVORec>> samples;  ///< the first of the records
};

/// Imports records from a text file. It is looked at first, from beginning to end, and whatever has to be
/// asked is asked then; the records are stored afterwards, as one change, while nobody waits for an answer.
class CRecordImport {
 public:
    static constexpr std::size_t kSamples = 20;
    static constexpr std::size_t kMisread = 1000;  ///< so many are named; the rest is counted

    /// The file must be open. stored: what is there already, of the request's kind and form. Both must
    /// outlive the import.
    CRecordImport(CTextFile& file, const ImportRequest& request, const CStoredContents& stored)
        : m_file(file), m_request(request), m_stored(stored) {}

    struct LookContext {
        /// Whether to go on behind a line that can't be imported.
        std::function<bool(const RefusedLine& line)> goesOn;
        /// Called for each line; false: the user cancels. Empty: nobody does.
        std::function<bool()> advance;
        int mostLines = 0;  ///< 0: all
    };
    [[nodiscard]] ImportPlan Look(const LookContext& context);
    /// Adds what the plan of the last look says.
    [[nodiscard]] Outcome Run(const ImportPlan& plan, CRecordChanges& changes, Hold hold,
                              const std::function<void(const QString& id)>& added);
    /// Whether the records were not added because the file isn't what was looked at any more.
    [[nodiscard]] bool FileChanged() const { return m_fileChanged; }

 private:
    class CSource;
    /// The texts for the pick lists, each once. Distances are texts there, "1234.5" as somebody typed it; a
    /// file has all their decimal places. An equal number that the list has will do.
    class CListTexts {
     public:
        explicit CListTexts(const QStringList& distances);
        void Add(const CVORec& record);
        [[nodiscard]] std::vector<ListText> Take() { return std::exchange(m_texts, {}); }

     private:
        /// The texts that were met last, by where they lie: most are met again and again.
        using Met = TextAddressCache<bool, 1024>;
        void AddText(int list, const QString& text);
        [[nodiscard]] bool IsKnownDistance(const QString& text);

        std::map<int, Met> m_met;  ///< by list
        std::vector<ListText> m_texts;
        QSet<std::pair<int, QString>> m_known;
        QSet<float> m_distances;
    };
    [[nodiscard]] bool IsLeftOut(const CVORec& record) const;
    void Account(const CRecordLines& lines, ImportPlan& plan) const;
    static void AccountMisread(const CRecordLines& lines, ImportPlan& plan);

    CTextFile& m_file;
    ImportRequest m_request;
    const CStoredContents& m_stored;
    bool m_fileChanged = false;
};

#pragma once

#include "records/CVORec.h"

#include <memory>

class CPrompt;
class CRecordChanges;
class CVelmarchDoc;
class FieldLabels;
struct MergedRecord;
enum class Answer;

/// A record while it is in its dialog.
struct DialogRecord {
    std::unique_ptr<CVORec> began;      ///< as it was stored when the dialog opened
    std::unique_ptr<CVORec> untouched;  ///< the same with what its timer has counted since
    CVORec& entered;                    ///< what the dialog shows, and what is stored once it is accepted
};

/// Stores what a dialog made of a record, whatever others have done to the record while it was open. A field
/// that wasn't entered keeps what they stored; where both sides have set one the user decides, and so does
/// the user about a record that was deleted.
class CRecordSave {
 public:
    enum class End {
        Stored,  ///< or nothing had to be
        Back,    ///< to the dialog: the user wants to look at it again
        Failed   ///< told; memory may show what isn't stored
    };
    /// All must outlive it.
    struct Context {
        CVelmarchDoc& document;
        CRecordChanges& changes;
        CPrompt& prompt;
        const FieldLabels& labels;
    };
    explicit CRecordSave(const Context& context) : m_context(context) {}

    /// Unless it is stored the record holds afterwards what the dialog has to show, others' changes included.
    [[nodiscard]] End Save(DialogRecord& edited);

 private:
    enum class Decision { Again, Stored, Back, Failed };
    [[nodiscard]] Decision SaveOnce(DialogRecord& edited);
    [[nodiscard]] Decision Meet(DialogRecord& edited, std::unique_ptr<CVORec> stored);
    [[nodiscard]] Decision OfferAsNew(const CVORec& entered);
    [[nodiscard]] Answer AskAbout(const MergedRecord& merged, const CVORec& entered, const CVORec& stored);

    Context m_context;
};

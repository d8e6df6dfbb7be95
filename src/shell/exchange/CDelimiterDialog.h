#pragma once

#include "exchange/import/ImportPreview.h"
#include "exchange/text/Delimiters.h"

#include <QDialog>
#include <functional>
#include <span>

class CMnemonics;
class CProfile;
class CPrompt;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QListWidget;
class QTableWidget;
class QVBoxLayout;

/// How a text file is read or written, as the user chooses it.
struct TextFileDraft {
    Delimiters delimiters;
    QByteArray encoding = {};  ///< empty: as found, or UTF-8
    bool addListItems = true;
    bool skipDuplicates = false;
};

enum class TextFilePurpose { ImportRecords, ImportItems, Export };

/// Chooses delimiters and encoding. An import shows what it would make of the file with each choice.
class CDelimiterDialog final : public QDialog {
    Q_OBJECT

 public:
    using Preview = std::function<ImportPreview(const TextFileDraft& draft)>;
    struct Context {
        TextFilePurpose purpose;
        CPrompt& prompt;
        CProfile& profile;
        Preview preview = {};  ///< of an import
    };
    CDelimiterDialog(const Context& context, const TextFileDraft& draft, QWidget* parent = nullptr);

    [[nodiscard]] TextFileDraft GetDraft() const;
    /// Refused in words, and the dialog stays open, for delimiters that no file can have.
    void accept() override;
    void done(int result) override;

 private:
    [[nodiscard]] QComboBox* AddCombo(QGridLayout& form, Text label, const QString& name,
                                      CMnemonics& mnemonics);
    [[nodiscard]] QComboBox* AddDelimiter(QGridLayout& form, Text label, const QString& name,
                                          std::span<const DelimiterChoice> choices, const QString& chosen,
                                          CMnemonics& mnemonics);
    void AddEncoding(QGridLayout& form, const QByteArray& chosen, CMnemonics& mnemonics);
    void AddChecks(QVBoxLayout& column, const TextFileDraft& draft, CMnemonics& mnemonics);
    void AddPreview(QVBoxLayout& column);
    void Show();
    void ShowPreview(const ImportPreview& preview);
    [[nodiscard]] bool IsGood(const TextFileDraft& draft) const;

    Context m_context;
    QComboBox* m_qualifier = nullptr;
    QComboBox* m_separator = nullptr;
    QComboBox* m_lineEnd = nullptr;
    QComboBox* m_encoding = nullptr;
    QLabel* m_sample = nullptr;
    QCheckBox* m_addListItems = nullptr;    ///< null where there is nothing to choose
    QCheckBox* m_skipDuplicates = nullptr;  ///< likewise
    QLabel* m_counts = nullptr;
    QTableWidget* m_table = nullptr;
    QListWidget* m_refused = nullptr;
};

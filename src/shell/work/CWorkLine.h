#pragma once

#include "viewmodel/work/WorkLine.h"

#include <QLineEdit>
#include <functional>
#include <vector>

class QCompleter;
class QStringListModel;

/// One line that says what is worked on. Below it stands what has the words typed so far; nothing is taken
/// over unless it is chosen. Return starts what the line says, or the work that was chosen below it; an item
/// or a note chosen there goes into the line. Tab takes what is chosen, or the only proposal, into the line.
class CWorkLine final : public QLineEdit {
    Q_OBJECT

 public:
    using Propose = std::function<std::vector<WorkProposal>(const QString& line)>;

    explicit CWorkLine(QWidget* parent = nullptr);
    void SetProposals(Propose propose) { m_propose = std::move(propose); }

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
    void StartWanted(const QString& line);
    /// Escape, or the keyboard went elsewhere with nothing typed.
    void Left();

 protected:
    [[nodiscard]] bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

 private:
    void Offer();
    void Take(int proposal);
    void Choose(int proposal);
    void Start();
    [[nodiscard]] bool Complete();
    [[nodiscard]] int Chosen() const;
    [[nodiscard]] bool TakeKey(int key);

    Propose m_propose;
    std::vector<WorkProposal> m_offered;
    QStringListModel* m_model;
    QCompleter* m_completer;
};

#pragma once

#include <QObject>
#include <QStringList>

class QAction;
class QMenu;

/// The stored defaults by name, among the ways to a new record. They are asked for each time that the menu
/// opens.
class CDefaultsMenu final : public QObject {
    Q_OBJECT

 public:
    /// before: the entry that the names stand above.
    CDefaultsMenu(QMenu& menu, QAction& before);

    /// In this order, as far as a menu has room; the dialog of the defaults has them all.
    void Show(const QStringList& names);

    static constexpr qsizetype kMostNames = 12;

 Q_SIGNALS:
    void Wanted();
    void Chosen(const QString& name);

 private:
    QMenu& m_menu;
    QAction& m_before;
    QList<QAction*> m_shown;
};

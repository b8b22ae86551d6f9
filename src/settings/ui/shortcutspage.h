#pragma once

#include "settings/ui/settingspage.h"

#include <QKeySequence>
#include <QMap>

class IconButton;
class KeyField;
class QPushButton;

/// Every keyboard shortcut of the box; those of the main window can be changed. GUI thread.
class ShortcutsPage final : public SettingsPage
{
    Q_OBJECT
public:
    explicit ShortcutsPage(QWidget *parent = nullptr);

private:
    struct Row
    {
        KeyField *field;
        IconButton *reset;
    };

    void addRows();
    QWidget *changeable(const QString &id, const QString &text);
    QWidget *fixed(const QString &text, const QKeySequence &keys);
    void choose(const QString &id, const QKeySequence &keys);
    void refuse(const QString &id, const QKeySequence &keys);
    void showKeys(const QString &id);
    void askToResetAll();

    QMap<QString, Row> m_rows; ///< by id
    QPushButton *m_resetAll;
    QString m_wantedId; ///< what the notice offers to take from another shortcut
    QKeySequence m_wantedKeys;
};

#pragma once

#include <QKeySequence>
#include <QObject>
#include <QString>
#include <QVector>

class QAction;

namespace zel {

struct ActionTable;
struct ShortcutRow;

/// Where a shortcut works. The parts of the main window share its keys; the small window has its own.
enum class ShortcutGroup {
    MainWindow,
    Pages,
    Lists,    ///< every list of documents
    ListPage, ///< one page; its actions come from its own table
    MiniWindow,
};

/// One keyboard shortcut as a list of them shows it.
struct ShortcutInfo
{
    QString id; ///< "window.search"
    ShortcutGroup group = ShortcutGroup::MainWindow;
    QString heading;       ///< of the page, translated; empty but for ListPage
    QString text;          ///< what it does, translated
    QKeySequence standard; ///< as delivered
    QKeySequence keys;     ///< in force; empty: none
    bool changeable = false;
};

/// Every keyboard shortcut of the box and the user's changes to those of the main window. GUI thread; lives
/// to the end of the process. A change is stored at once and every action made here follows it.
///
/// Ids that can be changed: window.settings, window.close, window.exit, window.menu, window.search,
/// page.1 … page.7 (the page's place in the navigation).
class Shortcuts final : public QObject
{
    Q_OBJECT
public:
    static Shortcuts *instance();

    /// An action with the text and the keys of this shortcut, in step with the settings as long as it lives.
    /// The caller adds it to the widget in whose window it works. Its object name is the id.
    QAction *make(const QString &id, QObject *parent);
    /// The same for an action that is there already (an entry of a menu): only its keys are set.
    void follow(const QString &id, QAction *action);

    /// The actions of a page belong to the shortcuts from now on; more than once is as good as once.
    static void addPage(const ActionTable &table);

    QVector<ShortcutInfo> list() const; ///< in the order of groups
    QKeySequence keys(const QString &id) const;

    /// Why a shortcut cannot have these keys.
    enum class Refusal {
        None,
        Taken,  ///< another shortcut of the window has them; `holder` says which
        Typing, ///< they write text or move the focus
        Fixed,  ///< this shortcut cannot be changed, or there is none of this id
    };
    struct Verdict
    {
        Refusal refusal = Refusal::None;
        QString holder; ///< id
    };
    Verdict check(const QString &id, const QKeySequence &keys) const;

    bool setKeys(const QString &id, const QKeySequence &keys); ///< empty: none; false when check() refuses
    /// Gives a shortcut its standard keys again, and takes them from the one that has them by now.
    void reset(const QString &id);
    void resetAll();
    bool isChanged(const QString &id) const;

Q_SIGNALS:
    void keysChanged(const QString &id);

private:
    Shortcuts() = default;

    /// What a shortcut would like, whatever others have: the user's own choice, else the standard.
    struct Wish
    {
        QKeySequence keys;
        bool isChosen = false;
    };
    Wish wishOf(const ShortcutRow &row) const;
    void store(const QString &id, const QKeySequence &keys);
};

} // namespace zel

#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <memory>

class ZelBoxRecentFileListView;
class RecentSortFilterModel;

/// The recent list as assistive programs see it: a list whose children are its rows, made when asked for and
/// deleted with their rows. GUI thread.
class RecentListAccessible final : public QAccessibleWidget
{
public:
    explicit RecentListAccessible(ZelBoxRecentFileListView *view);
    ~RecentListAccessible() override;

    static void install(); ///< makes Qt use this class for the list; again does nothing

    int childCount() const override;
    QAccessibleInterface *child(int row) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessible::State state() const override;

private:
    ZelBoxRecentFileListView *view() const;
    void follow(const RecentSortFilterModel *model) const;
    void forgetGoneRows() const;

    mutable QHash<QString, QAccessible::Id> m_rows; // by record id, which survives moves
    mutable QPointer<const RecentSortFilterModel> m_followed;
    mutable std::unique_ptr<QObject> m_connections;
};

/// One row. Knows its record by id, so it stays right while rows move, and is invalid once the record is
/// gone.
class RecentRowAccessible final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    RecentRowAccessible(ZelBoxRecentFileListView *view, const QString &recordId);

    int row() const; ///< -1 when it is gone

    bool isValid() const override { return row() >= 0; }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text text) const override;
    void setText(QAccessible::Text, const QString &) override { }
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override; ///< press: opens; showMenu; toggle: of the selection
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QModelIndex index() const;
    QString description() const; ///< the section and the path
    QString sectionTitle() const;

    QPointer<ZelBoxRecentFileListView> m_view;
    QString m_id;
};

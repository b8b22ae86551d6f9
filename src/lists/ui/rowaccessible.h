#pragma once

#include <QAccessible>
#include <QModelIndex>
#include <QPointer>

class ListModel;
class SectionListView;

/// One row of a list as assistive programs see it. Knows its row by id, so it stays right while rows move,
/// and is invalid once the row is gone. GUI thread.
class RowAccessible final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    RowAccessible(SectionListView *view, const QString &id);

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
    const ListModel *model() const; ///< null when the list is gone
    QModelIndex index() const;
    QString description() const; ///< section, what the row is, "3 of 20"
    QString sectionTitle() const;

    QPointer<SectionListView> m_view;
    QString m_id;
};

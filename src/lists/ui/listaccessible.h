#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <memory>

class ListModel;
class SectionListView;

/// A list as assistive programs see it: its children are its rows, made when asked for and deleted with their
/// rows. GUI thread.
class ListAccessible final : public QAccessibleWidget
{
public:
    explicit ListAccessible(SectionListView *view);
    ~ListAccessible() override;

    static void install();                          ///< makes Qt use this class for lists; again does nothing
    static void tellCurrent(SectionListView *view); ///< another row is the current one
    static void tellSelection(SectionListView *view);

    int childCount() const override;
    QAccessibleInterface *child(int row) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessible::State state() const override;

private:
    SectionListView *view() const;
    void follow(const ListModel *model) const;
    void forgetGoneRows() const;

    mutable QHash<QString, QAccessible::Id> m_rows; // by id, which survives moves
    mutable QPointer<const ListModel> m_followed;
    mutable std::unique_ptr<QObject> m_connections;
};

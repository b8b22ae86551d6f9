#pragma once

#include "lists/listmodel.h"
#include "lists/ui/sectionlistview.h"
#include "support/test.h"

namespace listtest {

/// Rows with a name, which is their id, in sections by the name's first letter; what does not pass the filter
/// is not there.
class Names : public ListModel
{
    Q_OBJECT
public:
    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : m_shown.size();
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        const bool wanted = role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::AccessibleTextRole;
        return wanted ? m_shown.at(index.row()) : QVariant();
    }
    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        return ListModel::flags(index) | Qt::ItemIsEditable;
    }
    QString idOf(int row) const override { return m_shown.at(row); }
    int rowOf(const QString &id) const override { return m_shown.indexOf(id); }
    int totalCount() const override { return m_all.size(); }
    zel::ListSections sections() const override
    {
        zel::ListSections list;
        for (int row = 0; row < m_shown.size(); ++row) {
            const QString title = m_shown.at(row).left(1);
            if (list.isEmpty() || list.constLast().title != title)
                list.append({row, title, row, 0});
            ++list.last().count;
        }
        return list;
    }

    void load(const QStringList &names)
    {
        m_all = names;
        filter({});
    }
    void filter(const QString &part)
    {
        if (!m_shown.isEmpty()) {
            beginRemoveRows({}, 0, m_shown.size() - 1);
            m_shown.clear();
            endRemoveRows();
        }
        const QStringList passing = m_all.filter(part);
        if (passing.isEmpty())
            return;
        beginInsertRows({}, 0, passing.size() - 1);
        m_shown = passing;
        endInsertRows();
    }
    void insert(int row, const QString &name)
    {
        beginInsertRows({}, row, row);
        m_shown.insert(row, name);
        endInsertRows();
    }
    void remove(const QString &name)
    {
        const int row = rowOf(name);
        beginRemoveRows({}, row, row);
        m_shown.removeAt(row);
        endRemoveRows();
    }
    void removeRange(int first, int last)
    {
        beginRemoveRows({}, first, last);
        m_shown.erase(m_shown.begin() + first, m_shown.begin() + last + 1);
        endRemoveRows();
    }
    void moveToTop(int row)
    {
        beginMoveRows({}, row, row, {}, 0);
        m_shown.move(row, 0);
        endMoveRows();
    }
    void turnOver()
    {
        Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
        std::reverse(m_shown.begin(), m_shown.end());
        const QModelIndexList before = persistentIndexList();
        QModelIndexList after;
        for (const QModelIndex &one : before)
            after << index(rowCount() - 1 - one.row());
        changePersistentIndexList(before, after);
        Q_EMIT layoutChanged({}, VerticalSortHint);
    }

private:
    QStringList m_all;
    QStringList m_shown;
};

/// "a0", "a1", "a2", then ten each of "b…", "c…" and so on.
inline QStringList names(int count)
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list << QChar::fromLatin1(char(i < 3 ? 'a' : 'b' + (i - 3) / 10 % 20)) + QString::number(i);
    return list;
}

/// Rows of 40 pixels with two buttons of 20 at their right end. Notes which rows are painted, and how.
class Painter : public ListRowDelegate
{
    Q_OBJECT
public:
    mutable QVector<int> painted;
    mutable QMap<int, ListRowOption> options; ///< row -> of its last painting

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        painted << index.row();
        options[index.row()] = ListRowOption(option);
        painter->drawText(option.rect, Qt::AlignCenter, index.data().toString());
    }
    int rowHeight(const QFont &) const override { return 40; }
    int buttonAt(const ListRowOption &option, const QModelIndex &index, const QPoint &pos) const override
    {
        for (const int button : {0, 1}) {
            if (option.buttons && buttonRect(option, index, button).contains(pos))
                return button;
        }
        return ListRowOption::NoButton;
    }
    QRect buttonRect(const ListRowOption &option, const QModelIndex &, int button) const override
    {
        return {option.rect.right() - 20 * (button + 1), option.rect.top() + 10, 20, 20};
    }
    QPixmap dragPixmap(const QModelIndex &, int, const QFont &, qreal) const override { return {}; }
};

/// A list that takes texts: a row that begins with "a" takes "item", the whole list "file". Rows with a 4
/// stay where they are. Counts drags instead of running them.
class View : public SectionListView
{
    Q_OBJECT
public:
    QModelIndexList dragged; ///< by the last drag
    int drags = 0;
    QStringList dropped; ///< "item into a1"

    View()
    {
        setDragEnabled(true);
        setAcceptDrops(true);
    }

protected:
    void startDrag(Qt::DropActions) override { ++drags; }
    bool canDrag(const QModelIndex &row) const override
    {
        return !row.data().toString().contains(QLatin1Char('4'));
    }
    bool rowsTakeDrops() const override { return true; }
    bool acceptDrop(QDropEvent *event, const QModelIndex &row) override
    {
        const QString text = event->mimeData()->text();
        const bool taken = row.isValid()
            ? text == "item"_s && row.data().toString().startsWith(QLatin1Char('a'))
            : text == "file"_s;
        if (taken)
            event->acceptProposedAction();
        return taken;
    }
    void dropInto(const QModelIndex &row, QDropEvent *event) override
    {
        dropped << event->mimeData()->text() + QLatin1String(" into ") + row.data().toString();
    }
};

/// The list in an active window, with a hundred rows.
class ListFixture
{
protected:
    void open()
    {
        m_model = std::make_unique<Names>();
        m_view = std::make_unique<View>();
        m_view->setItemDelegate(&m_delegate);
        m_view->setModel(m_model.get());
        m_view->resize(500, 400);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        m_model->load(names(100));
        m_view->setFocus();
    }
    void close()
    {
        m_view.reset();
        m_model.reset();
    }

    void click(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(m_view->viewport(), button, modifiers, centreOf(row));
    }
    /// The second half of a double click; click() is the first.
    void clickAgain(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseDClick(m_view->viewport(), button, modifiers, centreOf(row));
        QTest::mouseRelease(m_view->viewport(), button, modifiers, centreOf(row));
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(m_view.get(), Qt::Key(key), modifiers);
    }
    void move(const QPoint &pos, Qt::MouseButtons buttons = {})
    {
        QMouseEvent event(QEvent::MouseMove, pos, Qt::NoButton, buttons, {});
        QCoreApplication::sendEvent(m_view->viewport(), &event);
    }
    void send(QEvent::Type type)
    {
        QEvent event(type);
        QCoreApplication::sendEvent(m_view->viewport(), &event);
    }

    ListRowOption painted(int row)
    {
        m_view->viewport()->repaint();
        return m_delegate.options.value(row);
    }
    QPoint buttonOf(int row, int button)
    {
        return m_delegate.buttonRect(painted(row), index(row), button).center();
    }
    QString selection() const { return m_view->selectedIds().join(QLatin1Char(' ')); }
    QModelIndex index(int row) const { return m_model->index(row); }
    QPoint centreOf(int row) const { return m_view->visualRect(index(row)).center(); }
    int topOf(const QModelIndex &row) const { return m_view->visualRect(row).top(); }
    int scroll() const { return m_view->verticalScrollBar()->value(); }

    std::unique_ptr<Names> m_model;
    Painter m_delegate;
    std::unique_ptr<View> m_view;
};

} // namespace listtest

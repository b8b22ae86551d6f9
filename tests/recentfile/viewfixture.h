#pragma once

#include "kthumbnailcache.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/records.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "recentfile/ui/recentfilelistview.h"

#include <QScrollBar>
#include <QTest>
#include <memory>

namespace recenttest {

/// Notes which rows are painted, and how.
class CountingDelegate : public ZelBoxRecentFileDelegate
{
public:
    mutable QVector<int> painted;
    mutable QMap<int, ListRowOption> options; ///< row -> of its last painting
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        painted << index.row();
        options[index.row()] = *qstyleoption_cast<const ListRowOption *>(&option);
        ZelBoxRecentFileDelegate::paint(painter, option, index);
    }
};

/// Has what the test puts in.
class FakeThumbnails : public KThumbnailCache
{
    Q_OBJECT
public:
    QHash<QString, QImage> images;
    QStringList asked;
    FakeThumbnails() { setInstance(this); }
    ~FakeThumbnails() override { setInstance(nullptr); }
    QImage thumbnail(const QString &path, int) override
    {
        asked << path;
        return images.value(path);
    }
    void clear() override { images.clear(); }
};

/// Counts drags instead of running them.
class DraggedView : public ZelBoxRecentFileListView
{
public:
    int drags = 0;
    using ZelBoxRecentFileListView::dragData;

protected:
    void startDrag(Qt::DropActions) override { ++drags; }
};

/// The recent list in an active window, with a hundred rows and a fixed clock.
class ViewFixture
{
protected:
    using View = ZelBoxRecentFileListView;

    void open()
    {
        setZone("UTC");
        zel::setFixedNow(at(QStringLiteral("2024-03-20 12:00")));
        m_thumbnails = std::make_unique<FakeThumbnails>();
        m_source = std::make_unique<ZelBoxRecentFileModel>();
        m_model = std::make_unique<RecentSortFilterModel>();
        m_model->setSourceModel(m_source.get());
        m_view = std::make_unique<DraggedView>();
        m_view->setModel(m_model.get());
        m_view->setItemDelegate(&m_delegate);
        m_view->resize(500, 400);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        fill(100);
        m_view->setFocus();
    }

    void close()
    {
        m_view.reset();
        m_model.reset();
        m_source.reset();
        m_thumbnails.reset();
        zel::setFixedNow({});
    }

    // Three rows today, then ten each day: groups 1, 2, 3 and so on.
    void fill(int rows)
    {
        const QDateTime noon = at(QStringLiteral("2024-03-20 11:59"));
        RecordInfoList list;
        for (int i = 0; i < rows; ++i)
            list << record(
                QStringLiteral("file%1").arg(i), noon.addDays(i < 3 ? 0 : -(1 + (i - 3) / 10)).addSecs(-i));
        m_source->setRecords(list);
    }

    /// Changes the record of a row; the row stays where it is as long as its time does.
    void change(int row, const std::function<void(RecentFileInfo &)> &changer)
    {
        RecentFileInfo info = m_source->record(m_model->mapToSource(m_model->index(row)).row());
        changer(info);
        QVERIFY(m_source->updateRecord(info));
    }

    void click(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(m_view->viewport(), button, modifiers, centreOf(row));
    }

    /// The second half of a double click; click() is the first.
    void clickAgain(int row, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseDClick(m_view->viewport(), button, {}, centreOf(row));
        QTest::mouseRelease(m_view->viewport(), button, {}, centreOf(row));
    }

    void move(const QPoint &pos, Qt::MouseButtons buttons = {})
    {
        QMouseEvent event(QEvent::MouseMove, pos, Qt::NoButton, buttons, {});
        QCoreApplication::sendEvent(m_view->viewport(), &event);
    }

    void send(QEvent::Type type, QWidget *receiver)
    {
        QEvent event(type);
        QCoreApplication::sendEvent(receiver, &event);
    }

    ListRowOption painted(int row)
    {
        m_view->viewport()->repaint();
        return m_delegate.options.value(row);
    }

    QRect buttonRect(int row, RecentButton::Number button)
    {
        return m_delegate.buttonRect(painted(row), index(row), button);
    }

    /// "0 2-4"
    QString selection() const
    {
        QStringList parts;
        const QModelIndexList rows = m_view->selectedRows();
        for (int i = 0; i < rows.size();) {
            int end = i;
            while (end + 1 < rows.size() && rows.at(end + 1).row() == rows.at(end).row() + 1)
                ++end;
            const QString first = QString::number(rows.at(i).row());
            parts << (end == i ? first : first + QLatin1Char('-') + QString::number(rows.at(end).row()));
            i = end + 1;
        }
        return parts.join(QLatin1Char(' '));
    }

    QModelIndex index(int row) const { return m_model->index(row); }
    QPoint centreOf(int row) const { return m_view->visualRect(index(row)).center(); }
    int scroll() const { return m_view->verticalScrollBar()->value(); }
    int current() const { return m_view->currentIndex().row(); }

    std::unique_ptr<FakeThumbnails> m_thumbnails;
    std::unique_ptr<ZelBoxRecentFileModel> m_source;
    std::unique_ptr<RecentSortFilterModel> m_model;
    CountingDelegate m_delegate;
    std::unique_ptr<DraggedView> m_view;
};

} // namespace recenttest

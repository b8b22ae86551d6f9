#pragma once

#include "recentfile/recentfilemodel.h"
#include "recentfile/records.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "recentfile/ui/recentfilelistview.h"

#include <QScrollBar>
#include <QTest>
#include <memory>

namespace recenttest {

/// Notes which rows are painted.
class CountingDelegate : public ZelBoxRecentFileDelegate
{
public:
    mutable QVector<int> painted;
    mutable QStyle::State stateOfRow0;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        painted << index.row();
        if (index.row() == 0)
            stateOfRow0 = option.state;
        ZelBoxRecentFileDelegate::paint(painter, option, index);
    }
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
        m_model = std::make_unique<ZelBoxRecentFileModel>();
        m_view = std::make_unique<View>();
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
        m_model->setRecords(list);
    }

    void click(int row, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(m_view->viewport(), button, {}, centreOf(row));
    }

    /// The second half of a double click; click() is the first.
    void clickAgain(int row, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseDClick(m_view->viewport(), button, {}, centreOf(row));
        QTest::mouseRelease(m_view->viewport(), button, {}, centreOf(row));
    }

    void send(QEvent::Type type, QWidget *receiver)
    {
        QEvent event(type);
        QCoreApplication::sendEvent(receiver, &event);
    }

    QPoint centreOf(int row) const { return m_view->visualRect(m_model->index(row)).center(); }
    int scroll() const { return m_view->verticalScrollBar()->value(); }
    int current() const { return m_view->currentIndex().row(); }

    std::unique_ptr<ZelBoxRecentFileModel> m_model;
    CountingDelegate m_delegate;
    std::unique_ptr<View> m_view;
};

} // namespace recenttest

#include "recentfile/viewfixture.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QSignalSpy>

using namespace recenttest;

class TestViewDrag : public QObject, private ViewFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }
    void dragsBeginPastTheDistance();
    void draggedFiles();
    void drops_data();
    void drops();
};

void TestViewDrag::dragsBeginPastTheDistance()
{
    const auto drag = [this](const QPoint &from, const QPoint &by, Qt::MouseButton button = Qt::LeftButton,
                          Qt::KeyboardModifiers modifiers = {}) {
        m_view->drags = 0;
        QTest::mousePress(m_view->viewport(), button, modifiers, from);
        move(from + by / 2, button);
        move(from + by, button);
        QTest::mouseRelease(m_view->viewport(), button, modifiers, from + by);
        return m_view->drags;
    };
    const QPoint far(0, 80);
    QCOMPARE(drag(centreOf(1), {3, 3}), 0);
    QCOMPARE(drag(centreOf(1), far), 1);
    QCOMPARE(
        drag(centreOf(4), {3, 3}, Qt::LeftButton, Qt::ShiftModifier), 0); // far from where row 1 was pressed
    QCOMPARE(selection(), QStringLiteral("1-4"));
    QCOMPARE(drag(centreOf(2), far), 1);
    QCOMPARE(selection(), QStringLiteral("1-4")); // all of them go along
    QCOMPARE(drag(centreOf(2), far, Qt::RightButton), 0);
    QCOMPARE(drag({100, 5}, far), 0); // from a header
    move(centreOf(1));
    QCOMPARE(drag(buttonRect(1, RecentButton::Share).center(), far), 0);
}

void TestViewDrag::draggedFiles()
{
    QVERIFY(!m_view->dragData());
    change(1, [](RecentFileInfo &info) { info.presence = RecentFileInfo::Presence::Missing; });
    change(2, [](RecentFileInfo &info) { info.path.clear(); });
    click(1);
    click(2, Qt::LeftButton, Qt::ShiftModifier);
    QVERIFY(!m_view->dragData());
    change(0, [](RecentFileInfo &info) { info.path = QStringLiteral("/data/a b#%.odt"); });
    click(0);
    click(3, Qt::LeftButton, Qt::ShiftModifier);
    const auto data = m_view->dragData();
    QCOMPARE(data->data(QStringLiteral("text/uri-list")),
        QByteArrayLiteral("file:///data/a%20b%23%25.odt\r\nfile:///data/docs/file3.odt\r\n"));
    QCOMPARE(data->text(), QStringLiteral("/data/a b#%.odt\n/data/docs/file3.odt"));
}

void TestViewDrag::drops_data()
{
    QTest::addColumn<QStringList>("urls");
    QTest::addColumn<int>("actions");
    QTest::addColumn<QStringList>("expected");
    const QString local = QStringLiteral("file:///data/a%20b.odt");
    const QStringList path{QStringLiteral("/data/a b.odt")};
    QTest::newRow("file") << QStringList{local} << int(Qt::CopyAction | Qt::MoveAction) << path;
    QTest::newRow("link only") << QStringList{local} << int(Qt::LinkAction) << path;
    QTest::newRow("would be moved") << QStringList{local} << int(Qt::MoveAction) << QStringList();
    QTest::newRow("twice, and a remote one")
        << QStringList{local, QStringLiteral("https://example.com/x"), local} << int(Qt::CopyAction) << path;
    QTest::newRow("remote ones") << QStringList{QStringLiteral("sftp://host/x"),
        QStringLiteral("file://host/x")}
                                 << int(Qt::CopyAction) << QStringList();
    QTest::newRow("no files") << QStringList() << int(Qt::CopyAction) << QStringList();
}

void TestViewDrag::drops()
{
    QFETCH(QStringList, urls);
    QFETCH(int, actions);
    QFETCH(QStringList, expected);
    QMimeData data;
    data.setText(QStringLiteral("/data/a b.odt"));
    if (!urls.isEmpty())
        data.setUrls(QUrl::fromStringList(urls));
    QSignalSpy dropped(m_view.get(), &View::sigFilesDropped);
    const Qt::DropActions possible(actions);
    const QImage before = m_view->grab().toImage();
    QDragEnterEvent enter({100, 100}, possible, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_view->viewport(), &enter);
    QCOMPARE(enter.isAccepted(), !expected.isEmpty());
    QVERIFY(enter.dropAction() != Qt::MoveAction || expected.isEmpty());
    QCOMPARE(m_view->grab().toImage() != before, !expected.isEmpty()); // the frame
    QDropEvent drop({100, 100}, possible, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_view->viewport(), &drop);
    QCOMPARE(dropped.size(), expected.isEmpty() ? 0 : 1);
    if (!expected.isEmpty())
        QCOMPARE(dropped.at(0).at(0).toStringList(), expected);
    QCOMPARE(m_view->grab().toImage(), before);
}

QTEST_MAIN(TestViewDrag)
#include "tst_viewdrag.moc"

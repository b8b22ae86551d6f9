#include "base/settingskeys.h"
#include "cloud/zelboxcloudsvr.h"
#include "kcoreapplication.h"
#include "kliteskin.h"
#include "klitestyle.h"
#include "krt/krt.h"
#include "ksettings.h"
#include "mainwindow/mainwindowhost.h"
#include "mainwindow/ui/kcentralwidget.h"
#include "mainwindow/ui/navigationbar.h"
#include "mainwindow/ui/searchbox.h"
#include "mainwindow/ui/titlebar.h"
#include "mainwindow/ui/windowtitlebuttons.h"
#include "mainwindow/ui/zelboxmainwindow.h"
#include "recentfile/ui/recentfilewidget.h"
#include "widgets/windowframe.h"

#include <QAbstractButton>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest>

namespace {

class Host final : public MainWindowHost
{
public:
    void mainWindowFirstShown() override { ++firstShown; }
    void openSettings(const QString &page) override { settings << page; }
    void showExitDialog() override { ++exits; }
    ZelBoxCloudSvr *cloudService() override { return &cloud; }

    int firstShown = 0;
    QStringList settings;
    int exits = 0;
    ZelBoxCloudSvr cloud;
};

struct Stored
{
    QRect rect;
    bool maximized = false;
};

Stored storedPlacement()
{
    KSettings settings;
    settings.beginGroup(zel::keys::ApplicationSettings);
    return {
        QRect(settings.value(zel::keys::WindowPosX).toInt(), settings.value(zel::keys::WindowPosY).toInt(),
            settings.value(zel::keys::WindowWidth).toInt(), settings.value(zel::keys::WindowHeight).toInt()),
        settings.value(zel::keys::WindowIsMaximized).toBool()};
}

void show(ZelBoxMainWindow &window)
{
    window.restoreWindowState();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void firstShow();
    void rememberedPlace();
    void maximisedAndBack();
    void closeOnlyTells();
    void navigationByKeyboard();
    void searchBelongsToThePage();
    void unreadOfAllPages();
    void edges_data();
    void edges();
};

void TestMainWindow::init()
{
    KSettings settings;
    settings.remove(zel::keys::ApplicationSettings);
}

void TestMainWindow::firstShow()
{
    Host host;
    ZelBoxMainWindow window(&host);
    QSignalSpy ready(&window, &ZelBoxMainWindow::windowReadyToShow);
    show(window);
    QTRY_COMPARE(host.firstShown, 1);
    QCOMPARE(window.size(), KLiteStyle::dpiScaledSize({900, 580}));
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    QTRY_COMPARE(window.pos(),
        QPoint(area.left() + (area.width() - window.width()) / 2,
            area.top() + (area.height() - window.height()) / 2));
    window.hide();
    window.showToFront();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(host.firstShown, 1);
    QCOMPARE(ready.size(), 1);
}

void TestMainWindow::rememberedPlace()
{
    const QRect place(120, 90, 777, 555);
    Host host;
    {
        ZelBoxMainWindow window(&host);
        show(window);
        window.setGeometry(place);
        QTRY_COMPARE(window.geometry(), place);
        window.hide();
    }
    QCOMPARE(storedPlacement().rect, place);
    ZelBoxMainWindow window(&host);
    show(window);
    QTRY_COMPARE(window.geometry(), place);
    QVERIFY(!window.isMaximized());
}

void TestMainWindow::maximisedAndBack()
{
    const QRect place(120, 90, 777, 555);
    Host host;
    {
        ZelBoxMainWindow window(&host);
        show(window);
        window.setGeometry(place);
        QTRY_COMPARE(window.geometry(), place);
        QTest::mouseClick(
            window.findChild<QAbstractButton *>(QStringLiteral("restoreMaxButton")), Qt::LeftButton);
        QTRY_VERIFY(window.isMaximized() && window.width() > 1500);
        window.saveWindowState();
        QVERIFY(storedPlacement().maximized);
        QCOMPARE(storedPlacement().rect, place);
    }
    ZelBoxMainWindow window(&host);
    QSignalSpy restored(&window, &ZelBoxMainWindow::windowRestored);
    show(window);
    QVERIFY(window.isMaximized());
    QTRY_VERIFY(window.width() > 1500);
    // Saved again without ever having been normal in this run.
    window.saveWindowState();
    QCOMPARE(storedPlacement().rect, place);
    QTest::mouseDClick(window.central()->titleBar(), Qt::LeftButton, {}, QPoint(200, 10));
    QTRY_VERIFY(!window.isMaximized());
    QTRY_COMPARE(window.geometry(), place);
    QTRY_COMPARE(restored.size(), 1);
}

void TestMainWindow::closeOnlyTells()
{
    Host host;
    ZelBoxMainWindow window(&host);
    QSignalSpy closed(&window, &ZelBoxMainWindow::windowClose);
    show(window);
    QTest::mouseClick(window.findChild<QAbstractButton *>(QStringLiteral("closeButton")), Qt::LeftButton);
    QCOMPARE(closed.size(), 1);
    window.close();
    QCOMPARE(closed.size(), 2);
    QVERIFY(window.isVisible());
}

void TestMainWindow::navigationByKeyboard()
{
    Host host;
    ZelBoxMainWindow window(&host);
    show(window);
    KCentralWidget *central = window.central();
    auto *recent = central->navigation()->findChild<QAbstractButton *>(QStringLiteral("page_RecentFile"));
    recent->setFocus(Qt::TabFocusReason);
    QTest::keyClick(recent, Qt::Key_Down);
    QCOMPARE(central->currentPage(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QCOMPARE(central->currentPage(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QCOMPARE(central->currentPage(), 0);
    QVERIFY(!window.selectPage(99));
    QVERIFY(!window.selectPage(-1));
    QCOMPARE(central->currentPage(), 0);
    QTest::keyClick(&window, Qt::Key_Comma, Qt::ControlModifier);
    QCOMPARE(host.settings, QStringList{QString()});
    QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(host.exits, 1);
}

void TestMainWindow::searchBelongsToThePage()
{
    Host host;
    ZelBoxMainWindow window(&host);
    show(window);
    KCentralWidget *central = window.central();
    SearchBox *search = central->titleBar()->searchBox();
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(search->hasFocus());
    QTest::keyClicks(search, QStringLiteral("plan"));
    QTest::keyClick(&window, Qt::Key_2, Qt::ControlModifier); // the cloud documents
    QCOMPARE(central->currentPage(), 1);
    QVERIFY(!search->hasFocus());
    QCOMPARE(search->text(), QString());
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    QVERIFY(!search->isEnabled()); // a page that has nothing to search yet
    QTest::keyClick(&window, Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(search->text(), QStringLiteral("plan"));
    central->beginFinding(QStringLiteral("s"));
    QCOMPARE(search->text(), QStringLiteral("plans"));
    QTest::keyClick(search, Qt::Key_Escape);
    QCOMPARE(search->text(), QString());
    QVERIFY(search->hasFocus());
    QTest::keyClick(search, Qt::Key_Escape);
    QVERIFY(!search->hasFocus());
    central->beginFinding({});
    auto *other = central->navigation()->findChild<QAbstractButton *>(QStringLiteral("page_TeamFile"));
    QTest::mouseClick(other, Qt::LeftButton);
    QVERIFY(!central->titleBar()->isAncestorOf(QApplication::focusWidget()));
}

void TestMainWindow::unreadOfAllPages()
{
    Host host;
    ZelBoxMainWindow window(&host);
    QSignalSpy perPage(&window, &ZelBoxMainWindow::sigMsgCountChanged);
    QSignalSpy together(&window, &ZelBoxMainWindow::unreadCountChanged);
    Q_EMIT window.central()->recentPage()->recentFileUnreadMsgCount(3);
    QCOMPARE(perPage.takeFirst(), QVariantList({0, 3, 1}));
    QCOMPARE(together.takeFirst(), QVariantList{3});
    Q_EMIT window.central()->recentPage()->recentFileUnreadMsgCount(0);
    QCOMPARE(perPage.takeFirst(), QVariantList({0, 0, 0}));
    QCOMPARE(window.unreadCount(), 0);
}

void TestMainWindow::edges_data()
{
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<Qt::Edges>("edges");
    QTest::addColumn<Qt::CursorShape>("cursor");
    using E = Qt::Edges;
    QTest::newRow("inside") << QPoint(50, 50) << E() << Qt::ArrowCursor;
    QTest::newRow("left") << QPoint(0, 50) << E(Qt::LeftEdge) << Qt::SizeHorCursor;
    QTest::newRow("left, last pixel") << QPoint(4, 50) << E(Qt::LeftEdge) << Qt::SizeHorCursor;
    QTest::newRow("past the left edge") << QPoint(5, 50) << E() << Qt::ArrowCursor;
    QTest::newRow("right") << QPoint(99, 50) << E(Qt::RightEdge) << Qt::SizeHorCursor;
    QTest::newRow("top") << QPoint(50, 0) << E(Qt::TopEdge) << Qt::SizeVerCursor;
    QTest::newRow("bottom") << QPoint(50, 99) << E(Qt::BottomEdge) << Qt::SizeVerCursor;
    QTest::newRow("corner along the top")
        << QPoint(14, 0) << E(Qt::TopEdge | Qt::LeftEdge) << Qt::SizeFDiagCursor;
    QTest::newRow("corner along the side")
        << QPoint(99, 86) << E(Qt::RightEdge | Qt::BottomEdge) << Qt::SizeFDiagCursor;
    QTest::newRow("bottom left") << QPoint(0, 99) << E(Qt::BottomEdge | Qt::LeftEdge) << Qt::SizeBDiagCursor;
    QTest::newRow("outside") << QPoint(-1, 50) << E() << Qt::ArrowCursor;
}

void TestMainWindow::edges()
{
    QFETCH(QPoint, pos);
    QFETCH(Qt::Edges, edges);
    QFETCH(Qt::CursorShape, cursor);
    QCOMPARE(WidgetResizeHelper::edgesAt(pos, {100, 100}, 5), edges);
    QCOMPARE(WidgetResizeHelper::cursorFor(edges), cursor);
}

int main(int argc, char **argv)
{
    KCoreApplication application(
        argc, argv, QStringLiteral("zelbox"), QStringLiteral("Office"), QStringLiteral("6.0"));
    KLitOfficeInfo info;
    info.resourceDirs = QStringList{krt::dirs::office() + QStringLiteral("/res/2019zelbox")};
    KLiteSkin::setOfficeInfo(info);
    KLiteSkin::setDefaultBaseSkinInfo(KLiteSkinInfo());
    TestMainWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mainwindow.moc"

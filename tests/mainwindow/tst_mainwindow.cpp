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
#include "widgets/boxpage.h"
#include "widgets/windowframe.h"

#include <QAbstractButton>
#include <QAction>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest>

namespace {

/// Notes what the window tells it.
class FakePage final : public QWidget, public BoxPage
{
public:
    FakePage(const QString &name, QStringList &heard, QWidget *parent)
        : QWidget(parent), m_name(name), m_heard(heard)
    {
        setObjectName(name);
    }
    ~FakePage() override { host->setUnread(9, 1); } // for nobody any more

    void setFilterText(const QString &text) override { hear(QLatin1String("filter ") + text); }
    QWidget *focusTarget() override { return this; }
    void findEnded(bool toFirstRow) override
    {
        hear(toFirstRow ? "first row" : "back");
        setFocus();
    }
    void setHost(BoxPageHost *given) override
    {
        host = given;
        host->setUnread(1, 1);
    }
    void windowFirstShown() override { hear("first shown"); }
    void windowReady() override { hear("ready"); }
    void pageShown() override { hear("chosen"); }
    void pageHidden() override { hear("left"); }
    bool openPlace(const QString &place) override
    {
        hear(QLatin1String("place ") + place);
        return place == QLatin1String("here");
    }
    void releaseMemory() override { hear("release"); }

    BoxPageHost *host = nullptr;

private:
    void hear(const QString &what) { m_heard << m_name + QStringLiteral(": ") + what; }
    void hear(const char *what) { hear(QLatin1String(what)); }

    QString m_name;
    QStringList &m_heard;
};

class Host final : public MainWindowHost
{
public:
    zel::PageList pages() override
    {
        const auto row = [this](const char *key, bool searchable) {
            const QString name = QLatin1String(key);
            const auto make = [this, name, searchable](KCloudSvrProxy *, QWidget *parent) {
                if (!searchable)
                    return zel::MadePage{new QWidget(parent), nullptr};
                auto *page = new FakePage(name, heard, parent);
                return zel::MadePage{page, page};
            };
            return zel::PageInfo{name, name, QStringLiteral(":/icons_svg/nav_recent.svg"), make};
        };
        zel::PageList pages{row("One", true), row("Two", true), row("Plain", false)};
        pages.last().watchUnread = [](auto *, BoxPageHost &host, auto *) { host.setUnread(4, 1); };
        return pages;
    }
    void mainWindowFirstShown() override { ++firstShown; }
    void openSettings(const QString &page) override { settings << page; }
    void showExitDialog() override { ++exits; }
    ZelBoxCloudSvr *cloudService() override { return &cloud; }

    QStringList heard; ///< by all pages
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
    void whatPagesHear();
    void whatPagesTell();
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
    auto *first = central->navigation()->findChild<QAbstractButton *>(QStringLiteral("page_One"));
    first->setFocus(Qt::TabFocusReason);
    QTest::keyClick(first, Qt::Key_Down);
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
    QAction pageUndo;
    pageUndo.setShortcut(QKeySequence::Undo);
    pageUndo.setShortcutContext(Qt::WidgetWithChildrenShortcut);
    window.findChild<QWidget *>(QStringLiteral("One"))->addAction(&pageUndo);
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(search->hasFocus());
    QTest::keyClicks(search, QStringLiteral("plan"));
    QTest::keyClick(&window, Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(central->currentPage(), 1);
    QVERIFY(!search->hasFocus());
    QCOMPARE(search->text(), QString());
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    QVERIFY(!search->isEnabled()); // a page that has nothing to search yet
    QTest::keyClick(&window, Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(search->text(), QStringLiteral("plan"));
    central->beginFinding(QStringLiteral("s"));
    QCOMPARE(search->text(), QStringLiteral("plans"));
    QTest::keyClick(search, Qt::Key_Escape); // to where the typing began
    QCOMPARE(search->text(), QString());
    QVERIFY(!search->hasFocus());
    central->beginFinding({});
    QTest::keyClicks(search, QStringLiteral("x"));
    QTest::keyClick(search, Qt::Key_Escape);
    QVERIFY(search->hasFocus());
    int undone = 0; // of the page: in the empty field nothing else can be meant
    connect(&pageUndo, &QAction::triggered, this, [&] { ++undone; });
    QTest::keyClick(search, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(undone, 1);
    QTest::keyClick(search, Qt::Key_Escape);
    QVERIFY(!search->hasFocus());
    central->beginFinding(QStringLiteral("y"));
    QTest::keyClick(search, Qt::Key_Tab);
    QVERIFY(!central->titleBar()->isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); // also from the page
    QCOMPARE(search->text(), QString());
    central->beginFinding({});
    auto *other = central->navigation()->findChild<QAbstractButton *>(QStringLiteral("page_Plain"));
    QTest::mouseClick(other, Qt::LeftButton);
    QVERIFY(!central->titleBar()->isAncestorOf(QApplication::focusWidget()));
}

void TestMainWindow::whatPagesHear()
{
    Host host;
    ZelBoxMainWindow window(&host);
    const auto heard = [&] { return std::exchange(host.heard, {}).join(QStringLiteral(", ")); };
    window.startHidden();
    QCOMPARE(heard(), QStringLiteral("One: chosen, One: first shown"));
    window.selectPage(1);
    QCOMPARE(heard(), QStringLiteral("Two: first shown, One: left, Two: chosen"));
    show(window);
    QTRY_COMPARE(host.heard.size(), 2);
    QCOMPARE(heard(), QStringLiteral("One: ready, Two: ready"));
    QVERIFY(window.selectPage(2));
    QVERIFY(window.central()->selectPage(QStringLiteral("Two"), QStringLiteral("here")));
    QVERIFY(!window.central()->selectPage(QStringLiteral("One"), QStringLiteral("there")));
    QVERIFY(!window.central()->selectPage(QStringLiteral("None")));
    QCOMPARE(heard(),
        QStringLiteral("Two: left, Two: chosen, Two: place here, Two: left, One: chosen, One: place there"));
    window.onStashProcessMemory();
    QCOMPARE(heard(), QStringLiteral("One: release, Two: release"));
}

void TestMainWindow::whatPagesTell()
{
    Host host;
    ZelBoxMainWindow window(&host);
    const auto badge = [&](const char *page) {
        return window.findChild<QAbstractButton *>(QLatin1String(page))->accessibleDescription();
    };
    QCOMPARE(badge("page_One"), QStringLiteral("1 unread"));
    window.startHidden();
    window.startHidden();
    QCOMPARE(badge("page_Plain"), QStringLiteral("4 unread")); // before its first visit
    window.selectPage(1);
    QCOMPARE(window.unreadCount(), 6);
    QSignalSpy perPage(&window, &ZelBoxMainWindow::sigMsgCountChanged);
    QSignalSpy together(&window, &ZelBoxMainWindow::unreadCountChanged);
    BoxPageHost *one = window.findChild<FakePage *>(QStringLiteral("One"))->host;
    BoxPageHost *two = window.findChild<FakePage *>(QStringLiteral("Two"))->host;
    one->setUnread(3, 1);
    two->setUnread(200'000, 0);
    one->setUnread(0, 1);
    QCOMPARE(perPage.takeFirst(), QVariantList({0, 3, 1}));
    QCOMPARE(perPage.takeFirst(), QVariantList({1, 99'999, 0}));
    QCOMPARE(perPage.takeFirst(), QVariantList({0, 0, 1}));
    QCOMPARE(together, QList<QVariantList>({{8}, {100'006}, {100'003}}));
    QCOMPARE(window.unreadCount(), 100'003);
    window.central()->beginFinding(QStringLiteral("plan"));
    one->clearFilter(); // its own
    one->beginFinding(QStringLiteral("s"));
    QCOMPARE(window.central()->titleBar()->searchBox()->text(), QStringLiteral("plan"));
    two->openSettings(QStringLiteral("cloud"));
    QCOMPARE(host.settings, QStringList(QStringLiteral("cloud")));
}

void TestMainWindow::edges()
{
    using E = Qt::Edges;
    const struct
    {
        const char *name;
        QPoint pos;
        E edges;
        Qt::CursorShape cursor;
    } rows[] = {
        {"inside", {50, 50}, {}, Qt::ArrowCursor},
        {"left, last pixel", {4, 50}, Qt::LeftEdge, Qt::SizeHorCursor},
        {"past the left edge", {5, 50}, {}, Qt::ArrowCursor},
        {"right", {99, 50}, Qt::RightEdge, Qt::SizeHorCursor},
        {"top", {50, 0}, Qt::TopEdge, Qt::SizeVerCursor},
        {"bottom", {50, 99}, Qt::BottomEdge, Qt::SizeVerCursor},
        {"corner along the top", {14, 0}, Qt::TopEdge | Qt::LeftEdge, Qt::SizeFDiagCursor},
        {"corner along the side", {99, 86}, Qt::RightEdge | Qt::BottomEdge, Qt::SizeFDiagCursor},
        {"bottom left", {0, 99}, Qt::BottomEdge | Qt::LeftEdge, Qt::SizeBDiagCursor},
        {"outside", {-1, 50}, {}, Qt::ArrowCursor},
    };
    for (const auto &row : rows) {
        const E found = WidgetResizeHelper::edgesAt(row.pos, {100, 100}, 5);
        QVERIFY2(found == row.edges, row.name);
        QVERIFY2(WidgetResizeHelper::cursorFor(found) == row.cursor, row.name);
    }
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

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

class TestMainWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        KSettings settings;
        settings.remove(zel::keys::ApplicationSettings);
    }

    void firstShow()
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

    void rememberedPlace()
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

    void maximisedAndBack()
    {
        const QRect place(120, 90, 777, 555);
        Host host;
        {
            ZelBoxMainWindow window(&host);
            show(window);
            window.setGeometry(place);
            QTRY_COMPARE(window.geometry(), place);
            QTest::mouseClick(window.findChild<QAbstractButton *>("restoreMaxButton"_s), Qt::LeftButton);
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

    void closeOnlyTells()
    {
        Host host;
        ZelBoxMainWindow window(&host);
        QSignalSpy closed(&window, &ZelBoxMainWindow::windowClose);
        show(window);
        QTest::mouseClick(window.findChild<QAbstractButton *>("closeButton"_s), Qt::LeftButton);
        QCOMPARE(closed.size(), 1);
        window.close();
        QCOMPARE(closed.size(), 2);
        QVERIFY(window.isVisible());
    }

    void navigationByKeyboard()
    {
        Host host;
        ZelBoxMainWindow window(&host);
        show(window);
        KCentralWidget *central = window.central();
        auto *first = central->navigation()->findChild<QAbstractButton *>("page_One"_s);
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

    void searchBelongsToThePage()
    {
        Host host;
        ZelBoxMainWindow window(&host);
        show(window);
        KCentralWidget *central = window.central();
        SearchBox *search = central->titleBar()->searchBox();
        QAction pageUndo;
        pageUndo.setShortcut(QKeySequence::Undo);
        pageUndo.setShortcutContext(Qt::WidgetWithChildrenShortcut);
        window.findChild<QWidget *>("One"_s)->addAction(&pageUndo);
        QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(search->hasFocus());
        QTest::keyClicks(search, "plan"_s);
        QTest::keyClick(&window, Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(central->currentPage(), 1);
        QVERIFY(!search->hasFocus());
        QCOMPARE(search->text(), QString());
        QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
        QVERIFY(!search->isEnabled()); // a page that has nothing to search yet
        QTest::keyClick(&window, Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(search->text(), "plan"_s);
        central->beginFinding("s"_s);
        QCOMPARE(search->text(), "plans"_s);
        QTest::keyClick(search, Qt::Key_Escape); // to where the typing began
        QCOMPARE(search->text(), QString());
        QVERIFY(!search->hasFocus());
        central->beginFinding({});
        QTest::keyClicks(search, "x"_s);
        QTest::keyClick(search, Qt::Key_Escape);
        QVERIFY(search->hasFocus());
        int undone = 0; // of the page: in the empty field nothing else can be meant
        connect(&pageUndo, &QAction::triggered, this, [&] { ++undone; });
        QTest::keyClick(search, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(undone, 1);
        QTest::keyClick(search, Qt::Key_Escape);
        QVERIFY(!search->hasFocus());
        central->beginFinding("y"_s);
        QTest::keyClick(search, Qt::Key_Tab);
        QVERIFY(!central->titleBar()->isAncestorOf(QApplication::focusWidget()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); // also from the page
        QCOMPARE(search->text(), QString());
        central->beginFinding({});
        auto *other = central->navigation()->findChild<QAbstractButton *>("page_Plain"_s);
        QTest::mouseClick(other, Qt::LeftButton);
        QVERIFY(!central->titleBar()->isAncestorOf(QApplication::focusWidget()));
    }

    void whatPagesHear()
    {
        Host host;
        ZelBoxMainWindow window(&host);
        const auto heard = [&] { return std::exchange(host.heard, {}).join(", "_s); };
        window.startHidden();
        QCOMPARE(heard(), "One: chosen, One: first shown"_s);
        window.selectPage(1);
        QCOMPARE(heard(), "Two: first shown, One: left, Two: chosen"_s);
        show(window);
        QTRY_COMPARE(host.heard.size(), 2);
        QCOMPARE(heard(), "One: ready, Two: ready"_s);
        QVERIFY(window.selectPage(2));
        QVERIFY(window.central()->selectPage("Two"_s, "here"_s));
        QVERIFY(!window.central()->selectPage("One"_s, "there"_s));
        QVERIFY(!window.central()->selectPage("None"_s));
        QCOMPARE(
            heard(), "Two: left, Two: chosen, Two: place here, Two: left, One: chosen, One: place there"_s);
        window.onStashProcessMemory();
        QCOMPARE(heard(), "One: release, Two: release"_s);
        window.central()->beginFinding("plan"_s);
        ZelBoxMainWindow next(&host); // as after a change of language
        heard();
        next.continueFrom(window);
        QCOMPARE(heard(), "One: filter plan"_s);
        QCOMPARE(next.central()->titleBar()->searchBox()->text(), "plan"_s);
    }

    void whatPagesTell()
    {
        Host host;
        ZelBoxMainWindow window(&host);
        const auto badge = [&](const char *page) {
            return window.findChild<QAbstractButton *>(QLatin1String(page))->accessibleDescription();
        };
        QCOMPARE(badge("page_One"), "1 unread"_s);
        window.startHidden();
        window.startHidden();
        QCOMPARE(badge("page_Plain"), "4 unread"_s); // before its first visit
        window.selectPage(1);
        QCOMPARE(window.unreadCount(), 6);
        QSignalSpy perPage(&window, &ZelBoxMainWindow::sigMsgCountChanged);
        QSignalSpy together(&window, &ZelBoxMainWindow::unreadCountChanged);
        BoxPageHost *one = window.findChild<FakePage *>("One"_s)->host;
        BoxPageHost *two = window.findChild<FakePage *>("Two"_s)->host;
        one->setUnread(3, 1);
        two->setUnread(200'000, 0);
        one->setUnread(0, 1);
        QCOMPARE(perPage.takeFirst(), QVariantList({0, 3, 1}));
        QCOMPARE(perPage.takeFirst(), QVariantList({1, 99'999, 0}));
        QCOMPARE(perPage.takeFirst(), QVariantList({0, 0, 1}));
        QCOMPARE(together, QList<QVariantList>({{8}, {100'006}, {100'003}}));
        QCOMPARE(window.unreadCount(), 100'003);
        window.central()->beginFinding("plan"_s);
        one->clearFilter(); // its own
        one->beginFinding("s"_s);
        QCOMPARE(window.central()->titleBar()->searchBox()->text(), "plan"_s);
        two->openSettings("cloud"_s);
        QCOMPARE(host.settings, QStringList("cloud"_s));
    }

    void edges()
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

private:
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
            return place == "here"_s;
        }
        void releaseMemory() override { hear("release"); }

        BoxPageHost *host = nullptr;

    private:
        void hear(const QString &what) { m_heard << m_name + ": "_s + what; }
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
                const auto make = [this, name, searchable](KCloudSvrProxy *, QWidget *parent, const auto &) {
                    if (!searchable)
                        return zel::MadePage{new QWidget(parent), nullptr};
                    auto *page = new FakePage(name, heard, parent);
                    return zel::MadePage{page, page};
                };
                return zel::PageInfo{name, name, ":/icons_svg/nav_recent.svg"_s, make};
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
    static Stored storedPlacement()
    {
        KSettings settings;
        settings.beginGroup(zel::keys::ApplicationSettings);
        return {
            QRect(settings.value(zel::keys::WindowPosX).toInt(),
                settings.value(zel::keys::WindowPosY).toInt(), settings.value(zel::keys::WindowWidth).toInt(),
                settings.value(zel::keys::WindowHeight).toInt()),
            settings.value(zel::keys::WindowIsMaximized).toBool()};
    }
    static void show(ZelBoxMainWindow &window)
    {
        window.restoreWindowState();
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
};

int main(int argc, char **argv)
{
    KCoreApplication application(argc, argv, "zelbox"_s, "Office"_s, "6.0"_s);
    KLitOfficeInfo info;
    info.resourceDirs = QStringList{krt::dirs::office() + "/res/2019zelbox"_s};
    KLiteSkin::setOfficeInfo(info);
    KLiteSkin::setDefaultBaseSkinInfo(KLiteSkinInfo());
    TestMainWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mainwindow.moc"

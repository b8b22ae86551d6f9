// The two entries and the core, in one process that starts and ends several applications one after the other.

#include "app/ui/endingdialog.h"
#include "app/zelboxcore.h"
#include "app/zelboxentry.h"
#include "base/settingskeys.h"
#include "cloud/zelboxcloudsvr.h"
#include "fakehost.h"
#include "kcefloadingprogressdlg.h"
#include "kcoreapplication.h"
#include "ksettings.h"
#include "kthreadtiming.h"
#include "kxcefpluginstate.h"
#include "mainwindow/ui/hostedpage.h"
#include "mainwindow/ui/kcentralwidget.h"
#include "mainwindow/ui/zelboxmainwindow.h"
#include "standalonebox.h"

#include <stdexcept>

namespace {

int s_handled = 0;

// Runs on the first turn of the loop that is to come.
template <typename Step> void inTheLoop(QObject *context, Step step)
{
    QMetaObject::invokeMethod(context, step, Qt::QueuedConnection);
}

void chooseLanguage(const QString &language)
{
    KSettings settings;
    settings.beginGroup(zel::keys::Plugins);
    settings.beginGroup(zel::keys::Zelbox);
    settings.setValue(zel::keys::Language, language);
}

int enter(const wchar_t *commandLine)
{
    char name[] = "zelbox";
    char *arguments[] = {name, nullptr};
    return EntryPoint(1, arguments, commandLine);
}

} // namespace

class TestCore : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nullCommandLine()
    {
        try {
            enter(nullptr);
            QFAIL("no exception");
        } catch (const std::logic_error &error) {
            QCOMPARE(error.what(), "basic_string::_M_construct null not valid");
        }
        QVERIFY(!qApp);
    }

    void engineWaitCancelled()
    {
        const QtMessageHandler before = qInstallMessageHandler(countingHandler);
        KxCefEngine::instance()->setState(KxCefEngine::Loading);
        bool asked = false;
        answerEngineDialog([&](KCefLoadingProgressDlg *dialog) {
            asked = true;
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        const int result = enter(L"");
        KxCefEngine::instance()->setState(KxCefEngine::Ready);
        QVERIFY(asked);
        QCOMPARE(result, 0);
        QVERIFY(!ZelBoxCore::instance()->mainWindow());
        // The runtime was cleared: messages go where they went before.
        s_handled = 0;
        qWarning("still there");
        QCOMPARE(s_handled, 1);
        qInstallMessageHandler(before);
    }

    void engineGetsReady()
    {
        KxCefEngine::instance()->setState(KxCefEngine::Loading);
        bool shown = false;
        connect(ZelBoxCore::instance(), &ZelBoxCore::firstMainWindowShown, this, [&] {
            shown = ZelBoxCore::instance()->mainWindow()->isVisible();
            QCoreApplication::quit();
        });
        answerEngineDialog(
            [](KCefLoadingProgressDlg *) { KxCefEngine::instance()->setState(KxCefEngine::Ready); });
        QCOMPARE(enter(L""), 0);
        disconnect(ZelBoxCore::instance(), nullptr, this, nullptr);
        QVERIFY(shown);
    }

    void ordinaryRun()
    {
        ZelBoxCore *core = ZelBoxCore::instance();
        QSignalSpy firstShown(core, &ZelBoxCore::firstMainWindowShown);
        int turnsAfterExit = 0;
        int page = -1;
        bool waited = false;
        connect(core, &ZelBoxCore::firstMainWindowShown, this, [&] {
            page = core->mainWindow()->central()->currentPage();
            core->mainWindow()->findChild<HostedPage *>()->setBusy(true);
            FakeHost::instance().send(L"_TRANSMISSION_", u"zelbox_active_window?=/action=exit");
            ++turnsAfterExit;                   // the command did not end the loop under this event's feet
            inTheLoop(core->mainWindow(), [&] { // which something is under way in
                waited = core->mainWindow()->findChild<EndingDialog *>();
                core->mainWindow()->findChild<HostedPage *>()->setBusy(false);
            });
        });
        QCOMPARE(enter(L"/tab=3"), 0);
        disconnect(core, nullptr, this, nullptr);
        QCOMPARE(firstShown.size(), 1);
        QCOMPARE(turnsAfterExit, 1);
        QCOMPARE(page, 3);
        QVERIFY(waited);
        QVERIFY(!core->mainWindow());
        QVERIFY(!qApp);
        QCOMPARE(FakeHost::instance().registrations, 1);
    }

    void waitsForThreadTiming()
    {
        StandAloneBox box;
        KCoreApplication::getThreadTiming()->beginJob("warm-up"_s);
        QVERIFY(box.application.start(QString()));
        ZelBoxCore *core = ZelBoxCore::instance();
        QVERIFY(!core->mainWindow());
        inTheLoop(this, [] { KCoreApplication::getThreadTiming()->endJob("warm-up"_s); });
        QTRY_VERIFY(core->mainWindow() && core->mainWindow()->isVisible());
        // Later jobs of the runtime do not start the box again.
        ZelBoxMainWindow *window = core->mainWindow();
        KCoreApplication::getThreadTiming()->beginJob("later"_s);
        KCoreApplication::getThreadTiming()->endJob("later"_s);
        QCOMPARE(core->mainWindow(), window);
    }

    void background()
    {
        StandAloneBox box;
        QVERIFY(box.application.start(QString()));
        ZelBoxCore *core = ZelBoxCore::instance();
        QSignalSpy closed(core->mainWindow(), &ZelBoxMainWindow::windowClose);
        const auto storedWidth = [] {
            KSettings settings;
            settings.beginGroup(zel::keys::ApplicationSettings);
            return settings.value(zel::keys::WindowWidth, -1).toInt();
        };

        core->dispatch("/radarid=3"_s, false);
        core->dispatch("/options="_s, false);
        QVERIFY(core->mainWindow()->isVisible());
        core->dispatch("/from=tray"_s, false);
        QVERIFY(!core->mainWindow()->isVisible());
        QCOMPARE(closed.size(), 1);
        QCOMPARE(storedWidth(), core->mainWindow()->width());
        // 200 ms later the geometry is saved once more while memory is given back.
        KSettings().remove(zel::keys::ApplicationSettings);
        QCOMPARE(storedWidth(), -1);
        QTRY_COMPARE(storedWidth(), core->mainWindow()->width());
        core->dispatch(QString(), false);
        QVERIFY(core->mainWindow()->isVisible());
        QVERIFY(!core->mainWindow()->isMinimized());
    }

    // By the session or the bus: nobody has asked for a window yet.
    void startedInBackground()
    {
        StandAloneBox box;
        QSignalSpy firstShown(ZelBoxCore::instance(), &ZelBoxCore::firstMainWindowShown);
        QVERIFY(box.application.start("/from=autostart"_s));
        ZelBoxCore *core = ZelBoxCore::instance();
        QVERIFY(!core->mainWindow()->isVisible());
        QCoreApplication::sendPostedEvents();
        QCOMPARE(firstShown.size(), 0);
        core->dispatch(QString(), false);
        QVERIFY(core->mainWindow()->isVisible());
        QTRY_COMPARE(firstShown.size(), 1);
    }

    void languageAtOnce()
    {
        StandAloneBox box;
        QVERIFY(box.application.start("/tab=4"_s));
        ZelBoxCore *core = ZelBoxCore::instance();
        QSignalSpy firstShown(core, &ZelBoxCore::firstMainWindowShown);
        QTRY_COMPARE(firstShown.size(), 1);
        core->dispatch("/options=settings"_s, false);
        core->mainWindow()->showNormal();  // the default size may fill this screen
        core->mainWindow()->move(-50, 40); // where a start would not put it
        const QRect place = core->mainWindow()->geometry();
        chooseLanguage("zh_CN"_s);
        core->onLanguageChosen();
        const auto titleOf = [&] {
            return core->mainWindow()->findChild<QAbstractButton *>("page_RecentFile"_s)->text();
        };
        QTRY_COMPARE(titleOf(), "最近"_s);
        QVERIFY(QApplication::font().families().at(1).startsWith("Microsoft YaHei"_s));
        QVERIFY(core->mainWindow()->isVisible());
        QCOMPARE(core->mainWindow()->geometry(), place);
        QCOMPARE(core->mainWindow()->central()->currentPage(), 4);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(firstShown.size(), 1); // to everybody else it is the same window
        chooseLanguage(QString());
        core->onLanguageChosen();
        QTRY_COMPARE(titleOf(), "Recent"_s);
        QCOMPARE(QApplication::font().families().at(1), "Noto Sans"_s);
    }

    // What is under way, and would be in the code of a window that goes, comes to its end first.
    void remakingWaits()
    {
        StandAloneBox box;
        QVERIFY(box.application.start(QString()));
        ZelBoxCore *core = ZelBoxCore::instance();
        QSignalSpy firstShown(core, &ZelBoxCore::firstMainWindowShown);
        QPointer<ZelBoxMainWindow> window = core->mainWindow();
        core->remakeWindows(); // before the first show was told
        QVERIFY(!window);
        QTRY_COMPARE(firstShown.size(), 1);

        window = core->mainWindow();
        auto *drag = new QDrag(window->centralWidget());
        core->remakeWindows();
        QVERIFY(window);
        delete drag;
        QTRY_VERIFY(!window);

        window = core->mainWindow();
        QVERIFY(window->isVisible());
        auto *question = new QDialog(window);
        question->open();
        core->remakeWindows();
        QVERIFY(window);
        question->reject();
        QTRY_VERIFY(!window);
        window = core->mainWindow();
        QCoreApplication::sendPostedEvents();
        QVERIFY(window); // once
        QCOMPARE(firstShown.size(), 1);
    }

    void dialogClosedJustNow()
    {
        StandAloneBox box;
        QVERIFY(box.application.start(QString()));
        const auto shown = []() -> QWidget * {
            for (QWidget *each : QApplication::topLevelWidgets()) {
                if (qobject_cast<QDialog *>(each) && each->isVisible())
                    return each;
            }
            return nullptr;
        };
        for (const char *command : {"/action=exitdlg", "/options=settings"}) {
            ZelBoxCore::instance()->dispatch(QLatin1String(command), false);
            shown()->close();
            ZelBoxCore::instance()->dispatch(QLatin1String(command), false);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY2(shown(), command);
            shown()->close();
        }
    }

    void guestOfAHost()
    {
        int argc = 1;
        char name[] = "host";
        char *argv[] = {name, nullptr};
        QApplication host(argc, argv);
        ZelBoxCore *core = ZelBoxCore::instance();
        chooseLanguage("zh_CN"_s);
        QCOMPARE(execZelBox("/tab=2"_s), 0);
        QCOMPARE(execZelBox("/tab=5"_s), 0);
        QVERIFY(!core->mainWindow());
        QTRY_VERIFY(core->mainWindow());
        QTRY_COMPARE(core->mainWindow()->central()->currentPage(), 5);
        QVERIFY(core->cloudService());
        // A guest does not end its host.
        QCOMPARE(execZelBox("/action=exit"_s), 0);
        QTRY_VERIFY(!core->mainWindow());
        QCOMPARE(execZelBox("/show=main"_s), 0);
        QTRY_VERIFY(core->mainWindow() && core->mainWindow()->isVisible());
        // Exit took the translations along; the next command speaks the user's language again.
        auto *recent = core->mainWindow()->findChild<QAbstractButton *>("page_RecentFile"_s);
        QCOMPARE(recent->text(), "最近"_s);
        chooseLanguage(QString());
        QTimer::singleShot(0, &host, &QApplication::quit);
        host.exec();
        QVERIFY(!core->mainWindow());
    }

    void hostThatNeverRanALoop()
    {
        ZelBoxCore *core = ZelBoxCore::instance();
        {
            int argc = 1;
            char name[] = "host";
            char *argv[] = {name, nullptr};
            QApplication host(argc, argv);
            core->dispatch("/options=showZelBox|showZelBoxMini|settings|folderselector"_s, false);
            core->showMiniWidget(true);
            core->showMiniWidget(false);
            QVERIFY(core->mainWindow()->isVisible());
        }
        QVERIFY(!core->mainWindow());
        QCOMPARE(QApplication::topLevelWidgets().size(), 0);
    }

private:
    static void countingHandler(QtMsgType, const QMessageLogContext &, const QString &) { ++s_handled; }

    void answerEngineDialog(const std::function<void(KCefLoadingProgressDlg *)> &answer);
};

// Looks for the dialog on every turn until it is there.
void TestCore::answerEngineDialog(const std::function<void(KCefLoadingProgressDlg *)> &answer)
{
    inTheLoop(this, [this, answer] {
        if (auto *dialog = qobject_cast<KCefLoadingProgressDlg *>(QApplication::activeModalWidget()))
            answer(dialog);
        else
            answerEngineDialog(answer);
    });
}

QTEST_APPLESS_MAIN(TestCore)
#include "tst_core.moc"

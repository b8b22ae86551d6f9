// The settings dialog with real events, and what its pages change.
#include "base/autostart.h"
#include "base/settingskeys.h"
#include "kcloudsvrproxy.h"
#include "kdcinfoc.h"
#include "kliteskin.h"
#include "klitestyle.h"
#include "krecentfile.h"
#include "krt/krt.h"
#include "ksettings.h"
#include "kskin.h"
#include "recentfile/recentsettings.h"
#include "settings/historycleaner.h"
#include "settings/ui/keyfield.h"
#include "settings/ui/kzelboxcloudsettingsdlg.h"
#include "support/serviceprocess.h"
#include "widgets/noticearea.h"
#include "widgets/noticebar.h"
#include "widgets/shortcuts.h"
#include "widgets/sidelist.h"
#include "widgets/toggle.h"

using zel::Shortcuts;

class TestSettings : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(new KLiteStyle);
        QApplication::setFont(KLiteStyle::applicationFont());
        KLitOfficeInfo office;
        office.resourceDirs << qEnvironmentVariable("ZEL_BUILD_DIR") + "/share/zelbox/res/2019zelbox"_s;
        KLiteSkin::setOfficeInfo(office);
        KLiteSkin::setDefaultBaseSkinInfo({});
        krt::init("Halvorn"_s, "Office"_s, "6.0"_s, "zelbox"_s);
    }

    void pagesByKeyboard()
    {
        Window window("general");
        QTest::keyClick(window.dialog.focusWidget(), Qt::Key_Down);
        QCOMPARE(window.dialog.currentPage(), "recent"_s);
        QTest::keyClick(window.dialog.focusWidget(), Qt::Key_End);
        QCOMPARE(window.dialog.currentPage(), "about"_s);
        const auto texts = window.dialog.findChildren<QLabel *>();
        QVERIFY(std::any_of(texts.begin(), texts.end(),
            [](const QLabel *each) { return each->text().startsWith("ZELUA/1.0 (pc-office:"_s); }));
        QTest::keyClick(window.dialog.focusWidget(), Qt::Key_Up);
        QTest::keyClick(window.dialog.focusWidget(), Qt::Key_Tab);
        QVERIFY(qobject_cast<KeyField *>(window.dialog.focusWidget()));
        QTest::keyClick(window.dialog.focusWidget(), Qt::Key_Return);
        QTest::keyClick(window.dialog.focusWidget(), Qt::Key_Escape); // ends the waiting only
        QVERIFY(window.dialog.isVisible());
        QTest::keyClick(window.dialog.focusWidget(), Qt::Key_Escape);
        QVERIFY(!window.dialog.isVisible());
    }

    void namesOfCommands_data()
    {
        const auto row = zeltest::table<QString, QString>("page", "control");
        for (const char *page :
            {"general", "recent", "radar", "sync", "cloud", "privacy", "shortcuts", "about"})
            row(page, page, "");
        row("theme", "general", "Appearance");
        row("close", "general", "When the window is closed");
        row("telemetry", "privacy", "Write usage events to a file on this computer");
        row("nonsense", "radar", "");
    }
    void namesOfCommands()
    {
        QFETCH(const QString, control);
        Window window("radar");
        window.dialog.setParameter(QLatin1String(QTest::currentDataTag()));
        QTEST(window.dialog.currentPage(), "page");
        if (!control.isEmpty())
            QCOMPARE(window.dialog.focusWidget()->accessibleName(), control);
    }

    void general()
    {
        Window window("general");
        QSignalSpy language(&window.dialog, &KZelBoxCloudSettingsDlg::languageChosen);
        const QString entry = zel::AutostartPlaces::fromEnvironment().userFolder + QLatin1Char('/')
            + zel::Autostart::fileName();
        auto *appearance = window.find<QComboBox>("Appearance");
        QWheelEvent wheel({5, 5}, appearance->mapToGlobal(QPoint(5, 5)), {}, {0, -120}, {}, {},
            Qt::NoScrollPhase,
            false); // the page scrolls below the pointer
        QApplication::sendEvent(appearance, &wheel);
        QCOMPARE(KSkin::theme(), KSkin::Theme::Auto);
        auto *start = window.find<Toggle>("Start with the session");
        QVERIFY(!start->isChecked());
        QTest::mouseClick(start->parentWidget(), Qt::LeftButton); // anywhere on the row
        QVERIFY(start->isChecked() && QFile::exists(entry));
        QVERIFY(QFile::remove(entry)); // by the desktop's own settings
        QEvent activation(QEvent::WindowActivate);
        QApplication::sendEvent(&window.dialog, &activation);
        QVERIFY(!start->isChecked());
        QFile blocker(entry);
        QVERIFY(QDir().mkpath(entry)); // a folder in the entry's place
        QTest::mouseClick(start, Qt::LeftButton);
        QVERIFY(!start->isChecked() && !window.notice().isEmpty());

        QTest::keyClick(window.find<QComboBox>("When the window is closed"), Qt::Key_End);
        QCOMPARE(stored(zel::keys::CloseAction), QVariant("exit"_s));
        QTest::keyClick(window.find<QComboBox>("Appearance"), Qt::Key_End);
        QCOMPARE(KSkin::theme(), KSkin::Theme::Dark);
        KSkin::setTheme(KSkin::Theme::Light); // by a command
        QCOMPARE(window.find<QComboBox>("Appearance")->currentText(), "Light"_s);
        QTest::keyClick(window.find<QComboBox>("Language"), Qt::Key_End);
        QCOMPARE(stored(zel::keys::Language), QVariant("zh_CN"_s));
        QCOMPARE(language.size(), 1);
        KSettings().remove("plugins/zelbox/language"_s);
    }

    void recent()
    {
        Window window("recent");
        QCOMPARE(zel::recent::storedSources(), int(RecentSource::All));
        window.click<Toggle>("This desktop's list");
        QCOMPARE(zel::recent::storedSources(), RecentSource::Box | RecentSource::Devices);
        QCOMPARE(RecentSources(), RecentSource::Box | RecentSource::Devices);
        QVERIFY(!window.find<Toggle>("Last used in sandboxed programs")->isEnabled());
        QVERIFY(window.find<Toggle>("Last used in ZEL Box")->isEnabled());
        window.click<Toggle>("Last used in ZEL Box");
        QCOMPARE(zel::recent::kindMask(), zel::recent::AllKinds & ~RecentRecordKind::Opened);
        window.click<Toggle>("This desktop's list");
        window.click<Toggle>("Last used in ZEL Box");
        QCOMPARE(RecentSources(), int(RecentSource::All));
        zel::recent::setRemindersOn(false); // in the page's menu
        QVERIFY(!window.find<Toggle>("Remind of changes on other devices")->isChecked());
    }

    void shortcuts()
    {
        Window window("shortcuts");
        Shortcuts *all = Shortcuts::instance();
        QAction action;
        all->follow("window.exit"_s, &action);
        auto *field = window.click<KeyField>("Exit");
        QTest::keyClick(field, Qt::Key_Q, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(action.shortcut(), keys("Ctrl+Shift+Q"));
        QTest::mouseClick(field, Qt::LeftButton);
        QTest::keyClick(field, Qt::Key_Backspace);
        QVERIFY(action.shortcut().isEmpty());
        QTest::mouseClick(field, Qt::LeftButton);
        QTest::keyClick(field, Qt::Key_W, Qt::ControlModifier); // of another, which gives it up
        QVERIFY(action.shortcut().isEmpty() && window.notice().contains("Close window"_s));
        auto *last = window.find<QPushButton>("Reset All…");
        const auto isFree = [last] { // below the notice it could not be reached
            QWidget *page = last;
            while (!page->findChild<NoticeArea *>())
                page = page->parentWidget();
            auto *bar = page->findChild<QScrollArea *>()->verticalScrollBar();
            bar->setValue(bar->maximum());
            const auto *area = page->findChild<NoticeArea *>();
            return area->isVisible() && last->mapTo(page, last->rect().bottomLeft()).y() < area->y();
        };
        QTRY_VERIFY(isFree());
        for (QPushButton *button : window.dialog.findChildren<QPushButton *>()) {
            if (button->isVisible() && button->text() == "Use Here"_s)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QCOMPARE(action.shortcut(), keys("Ctrl+W"));
        QVERIFY(all->keys("window.close"_s).isEmpty());
        window.click<QPushButton>("Reset All…");
        sayYes("Reset All");
        QCOMPARE(action.shortcut(), keys("Ctrl+Q"));
        QVERIFY(!all->isChanged("window.close"_s));
    }

    void clearing()
    {
        const QString logs = krt::log::filePath();
        QFile old(logs + ".2"_s);
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old lines") > 0);
        old.close();
        qInfo("a line before");
        Window window("privacy");
        QTRY_VERIFY(window.canPress("Clear “Logs”…"));
        window.click<QPushButton>("Clear “Logs”…");
        sayYes("Clear");
        QTRY_COMPARE(window.notice(), "Cleared."_s);
        QVERIFY(!old.exists());
        qInfo("a line after");
        QFile log(logs);
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QByteArray content = log.readAll();
        QVERIFY(!content.contains("a line before") && content.contains("a line after"));

        QVERIFY(!KDcInfoC::isEnabled()); // at first
        window.click<Toggle>("Write usage events to a file on this computer");
        KDcInfoC::postGeneralEvent("some_event"_s);
        QVERIFY(QFile::exists(KDcInfoC::filePath()));
        window.dialog.setParameter("general"_s);
        window.dialog.setParameter("privacy"_s); // looked at again
        QTRY_VERIFY(window.canPress("Clear “Usage events”…"));
        window.click<QPushButton>("Clear “Usage events”…");
        sayYes("Clear");
        QVERIFY(!QFile::exists(KDcInfoC::filePath()));
        KDcInfoC::setEnabled(false);
    }

    void cloud()
    {
        ServiceProcess service;
        QVERIFY(service.start());
        KCloudSvrProxy cloud;
        Window window("cloud", &cloud);
        window.click<QPushButton>("Try again"); // finds the service that runs
        QTRY_VERIFY_WITH_TIMEOUT(cloud.isLogined(), 20000);
        QTRY_VERIFY(window.canPress("Open Folder"));
        auto *listed = window.find<Toggle>("Show in file managers");
        QTRY_VERIFY(listed->isEnabled());
        QVERIFY(!listed->isChecked()); // nobody was asked yet
        listed->click();
        QTRY_COMPARE_WITH_TIMEOUT(
            QFileInfo(qEnvironmentVariable("XDG_CONFIG_HOME") + "/gtk-3.0/bookmarks"_s).size() > 0, true,
            5000);
        auto *bubbles = window.find<QComboBox>("Message when transfers have ended");
        QTest::keyClick(bubbles, Qt::Key_End);
        for (const QPushButton *button : window.dialog.findChildren<QPushButton *>()) // Enter presses none
            QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->text()));
        QSignalSpy cleared(RecentFileEventObject(), &KRecentFileEvents::historyCleared);
        HistoryCleaner(&cloud).clear(); // and the dialog is closed at once
        QTRY_COMPARE(cleared.size(), 1);
        UninitRecentFile();
        window.click<QPushButton>("Sign Out");
        QTRY_VERIFY(!cloud.isLogined());
        QTRY_VERIFY(window.canPress("Sign In"));
        window.click<QPushButton>("Sign In");
        QTRY_VERIFY(cloud.isLogined());
        QTRY_VERIFY(window.canPress("Sign Out"));
        service.kill();
        QTRY_VERIFY(!window.canPress("Sign Out"));
        QTRY_VERIFY_WITH_TIMEOUT(window.canPress("Sign Out"), 30000); // the link starts another one
        QTRY_COMPARE(bubbles->currentText(), "Never"_s);
    }

    void fitsWithLongTexts()
    {
        LongTexts texts;
        QCoreApplication::installTranslator(&texts);
        QFont large = QApplication::font();
        large.setPointSizeF(large.pointSizeF() * 1.5);
        const QFont ordinary = QApplication::font();
        QApplication::setFont(large);
        Window window("general");
        window.dialog.resize(640, 480);
        QCOMPARE(window.dialog.size(), QSize(640, 480));
        for (const char *page :
            {"general", "recent", "radar", "sync", "cloud", "privacy", "shortcuts", "about"}) {
            window.dialog.setParameter(QLatin1String(page));
            const auto areas = window.dialog.findChildren<QScrollArea *>();
            const auto shown = std::find_if(
                areas.begin(), areas.end(), [](const QScrollArea *area) { return area->isVisible(); });
            QTRY_VERIFY2(
                (*shown)->widget()->minimumSizeHint().width() <= (*shown)->viewport()->width(), page);
        }
        window.dialog.setParameter("language"_s); // at the end of its page
        const QWidget *language = window.dialog.focusWidget();
        QTRY_COMPARE(language->visibleRegion().boundingRect(), language->rect());
        QApplication::setFont(ordinary);
        QCoreApplication::removeTranslator(&texts);
    }

private:
    static QVariant stored(const QString &key)
    {
        KSettings settings;
        settings.beginGroup(zel::keys::Plugins);
        settings.beginGroup(zel::keys::Zelbox);
        return settings.value(key);
    }
    static QKeySequence keys(const char *text) { return QKeySequence(QLatin1String(text)); }
    /// A dialog on the screen, and its controls by what assistive programs call them.
    struct Window
    {
        KSkin skin;
        KZelBoxCloudSettingsDlg dialog;

        explicit Window(const char *page, KCloudSvrProxy *cloud = nullptr) : dialog(&skin, cloud)
        {
            dialog.setParameter(QLatin1String(page));
            dialog.show();
            if (!QTest::qWaitForWindowActive(&dialog))
                qFatal("the dialog does not show");
        }
        template <class Control> Control *look(const char *name) const // null: there is none
        {
            for (Control *each : dialog.findChildren<Control *>()) {
                const auto *button = qobject_cast<const QAbstractButton *>(each);
                const bool byText = button && each->accessibleName().isEmpty();
                const QString text = byText ? button->text() : each->accessibleName();
                if (each->isVisible() && text == QString::fromUtf8(name))
                    return each;
            }
            return nullptr;
        }
        template <class Control> Control *find(const char *name) const
        {
            auto *found = look<Control>(name);
            if (!found)
                qFatal("there is no %s", name);
            return found;
        }
        bool canPress(const char *name) const
        {
            const auto *button = look<QPushButton>(name);
            return button && button->isEnabled();
        }
        template <class Control> Control *click(const char *name) const
        {
            auto *control = find<Control>(name);
            QTest::mouseClick(control, Qt::LeftButton);
            return control;
        }
        QString notice() const
        {
            const auto all = dialog.findChildren<NoticeBar *>();
            for (const NoticeBar *each : all) {
                if (each->isVisible())
                    return each->text();
            }
            return {};
        }
    };
    /// Says yes to the question that a dialog asks.
    static void sayYes(const char *text)
    {
        QWidget *question = nullptr;
        QTRY_VERIFY((question = QApplication::activeModalWidget()) != nullptr);
        for (QPushButton *button : question->findChildren<QPushButton *>()) {
            if (button->text() == QLatin1String(text))
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        QFAIL("there is no such button");
    }
    /// Texts twice as long, of words that do not break, as some languages have them.
    class LongTexts final : public QTranslator
    {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char *, const char *text, const char *, int) const override
        {
            const QString once = QString::fromUtf8(text);
            QString word = once;
            return once + QLatin1Char(' ') + word.replace(QLatin1Char(' '), QLatin1Char('x')).left(40);
        }
    };
};

QTEST_MAIN(TestSettings)
#include "tst_settings.moc"

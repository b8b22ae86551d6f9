// The registry of shortcuts.
#include "ksettings.h"
#include "widgets/actiontable.h"
#include "widgets/shortcuts.h"

using zel::Shortcuts;

class TestShortcuts : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // A page brings its own.
    void initTestCase()
    {
        static const zel::ActionTable page{"Test", "A page",
            {{0, "page.refresh", "Refresh", nullptr, {Qt::Key_F7}},
                {1, "page.copy", "Copy", nullptr, {QKeySequence("Ctrl+K"_s)}},
                {2, "page.folder", "Folder", nullptr, {keys("Alt+Return"), keys("Ctrl+J")}}}};
        for (int i = 0; i < 2; ++i)
            Shortcuts::addPage(page);
    }

    void refusedKeys_data()
    {
        using Refusal = Shortcuts::Refusal;
        const auto row = zeltest::table<QString, QString, int, QString>("id", "wanted", "refusal", "holder");
        row("free", "window.exit", "Ctrl+Shift+Q", Refusal::None, "");
        row("none", "window.exit", "", Refusal::None, "");
        row("its own", "window.exit", "Ctrl+Q", Refusal::None, "");
        row("function key", "window.exit", "F12", Refusal::None, "");
        row("of another", "window.exit", "Ctrl+W", Refusal::Taken, "window.close");
        row("of a page inside the window", "window.exit", "F7", Refusal::Taken, "page.refresh");
        row("of a list in it", "page.1", "Ctrl+K", Refusal::Taken, "page.copy");
        row("of a list, on the keypad", "page.1", "Alt+Enter", Refusal::Taken, "page.folder");
        row("second keys of a list", "page.1", "Ctrl+J", Refusal::Taken, "page.folder");
        row("types a letter", "window.exit", "Shift+Q", Refusal::Typing, "");
        row("moves in lists", "window.exit", "Down", Refusal::Typing, "");
        row("moves between windows", "window.exit", "Ctrl+Tab", Refusal::Typing, "");
        row("two in a row", "window.exit", "Ctrl+K, Ctrl+Q", Refusal::Typing, "");
        row("cannot be changed", "page.copy", "Ctrl+Shift+C", Refusal::Fixed, "");
        row("no such", "window.nothing", "Ctrl+Shift+C", Refusal::Fixed, "");
    }
    void refusedKeys()
    {
        const auto [id, wanted] = zeltest::row<QString, QString>();
        const auto verdict = Shortcuts::instance()->check(id, QKeySequence(wanted));
        QTEST(int(verdict.refusal), "refusal");
        QTEST(verdict.holder, "holder");
    }

    void keysAreFollowed()
    {
        Shortcuts *all = Shortcuts::instance();
        QAction menu;
        all->follow("window.exit"_s, &menu);
        const std::unique_ptr<QAction> action(all->make("window.exit"_s, nullptr));
        QCOMPARE(action->shortcut(), keys("Ctrl+Q"));
        QVERIFY(all->setKeys("window.exit"_s, {}));
        QVERIFY(action->shortcut().isEmpty() && menu.shortcut().isEmpty());
        QVERIFY(all->setKeys("window.close"_s, keys("Ctrl+Q")));
        all->reset("window.exit"_s); // takes its keys back
        QCOMPARE(action->shortcut(), keys("Ctrl+Q"));
        QVERIFY(all->keys("window.close"_s).isEmpty());
        all->resetAll();
        QCOMPARE(all->keys("window.close"_s), keys("Ctrl+W"));
        const QString stored = "plugins/zelbox/shortcuts/"_s;
        KSettings().setValue(stored + "page.1"_s, "Ctrl+Q"_s); // never for two
        QCOMPARE(all->keys("page.1"_s), keys("Ctrl+Q"));
        QVERIFY(all->keys("window.exit"_s).isEmpty());
        all->reset("window.exit"_s);
        QCOMPARE(action->shortcut(), keys("Ctrl+Q"));
        QVERIFY(all->keys("page.1"_s).isEmpty());
        KSettings().remove("plugins/zelbox/shortcuts"_s);
        for (const char *nonsense : {"Q", "Ctrl+K, Ctrl+L", "abc def", "F7"}) { // written by hand
            KSettings settings;
            settings.setValue(stored + "window.exit"_s, QLatin1String(nonsense));
            QCOMPARE(all->keys("window.exit"_s), keys("Ctrl+Q"));
            settings.remove("plugins/zelbox/shortcuts"_s);
        }
    }

private:
    static QKeySequence keys(const char *text) { return QKeySequence(QLatin1String(text)); }
};

QTEST_MAIN(TestShortcuts)
#include "tst_shortcuts.moc"

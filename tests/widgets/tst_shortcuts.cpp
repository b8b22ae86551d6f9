// The registry of shortcuts.
#include "ksettings.h"
#include "widgets/actiontable.h"
#include "widgets/shortcuts.h"

#include <QAction>
#include <QtTest>

using zel::Shortcuts;

namespace {

QKeySequence keys(const char *text)
{
    return QKeySequence(QLatin1String(text));
}

} // namespace

class TestShortcuts : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void refusedKeys_data();
    void refusedKeys();
    void keysAreFollowed();
};

// A page brings its own.
void TestShortcuts::initTestCase()
{
    static const zel::ActionTable page{"Test", "A page",
        {{0, "page.refresh", "Refresh", nullptr, {Qt::Key_F7}},
            {1, "page.copy", "Copy", nullptr, {QKeySequence(QStringLiteral("Ctrl+K"))}},
            {2, "page.folder", "Folder", nullptr, {keys("Alt+Return"), keys("Ctrl+J")}}}};
    for (int i = 0; i < 2; ++i)
        Shortcuts::addPage(page);
}

void TestShortcuts::refusedKeys_data()
{
    using Refusal = Shortcuts::Refusal;
    QTest::addColumn<QString>("id");
    QTest::addColumn<QKeySequence>("wanted");
    QTest::addColumn<int>("refusal");
    QTest::addColumn<QString>("holder");
    const auto row = [](const char *name, const char *id, const char *wanted, Refusal refusal,
                         const char *holder) {
        QTest::newRow(name) << QString::fromLatin1(id) << keys(wanted) << int(refusal)
                            << QString::fromLatin1(holder);
    };
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

void TestShortcuts::refusedKeys()
{
    QFETCH(const QString, id);
    QFETCH(const QKeySequence, wanted);
    const Shortcuts::Verdict verdict = Shortcuts::instance()->check(id, wanted);
    QTEST(int(verdict.refusal), "refusal");
    QTEST(verdict.holder, "holder");
}

void TestShortcuts::keysAreFollowed()
{
    Shortcuts *all = Shortcuts::instance();
    QAction menu;
    all->follow(QStringLiteral("window.exit"), &menu);
    const std::unique_ptr<QAction> action(all->make(QStringLiteral("window.exit"), nullptr));
    QCOMPARE(action->shortcut(), keys("Ctrl+Q"));
    QVERIFY(all->setKeys(QStringLiteral("window.exit"), {}));
    QVERIFY(action->shortcut().isEmpty() && menu.shortcut().isEmpty());
    QVERIFY(all->setKeys(QStringLiteral("window.close"), keys("Ctrl+Q")));
    all->reset(QStringLiteral("window.exit")); // takes its keys back
    QCOMPARE(action->shortcut(), keys("Ctrl+Q"));
    QVERIFY(all->keys(QStringLiteral("window.close")).isEmpty());
    all->resetAll();
    QCOMPARE(all->keys(QStringLiteral("window.close")), keys("Ctrl+W"));
    const QString stored = QStringLiteral("plugins/zelbox/shortcuts/");
    KSettings().setValue(stored + QStringLiteral("page.1"), QStringLiteral("Ctrl+Q")); // never for two
    QCOMPARE(all->keys(QStringLiteral("page.1")), keys("Ctrl+Q"));
    QVERIFY(all->keys(QStringLiteral("window.exit")).isEmpty());
    all->reset(QStringLiteral("window.exit"));
    QCOMPARE(action->shortcut(), keys("Ctrl+Q"));
    QVERIFY(all->keys(QStringLiteral("page.1")).isEmpty());
    KSettings().remove(QStringLiteral("plugins/zelbox/shortcuts"));
    for (const char *nonsense : {"Q", "Ctrl+K, Ctrl+L", "abc def", "F7"}) { // written by hand
        KSettings settings;
        settings.setValue(stored + QStringLiteral("window.exit"), QLatin1String(nonsense));
        QCOMPARE(all->keys(QStringLiteral("window.exit")), keys("Ctrl+Q"));
        settings.remove(QStringLiteral("plugins/zelbox/shortcuts"));
    }
}

QTEST_MAIN(TestShortcuts)
#include "tst_shortcuts.moc"

#include "recentfile/pagefixture.h"

#include "recentfile/ui/recentdialogs.h"
#include "recentfile/ui/recentfilemenu.h"
#include "recentfile/ui/recentfiletitlewidget.h"
#include "recentfile/ui/recentguides.h"
#include "recentfile/ui/sharedialog.h"
#include "widgets/chip.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMimeData>
#include <QSignalSpy>

using namespace recenttest;

/// What a person does on the page, by mouse and keyboard.
class TestPageActions : public QObject, private PageFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { clear(); }
    void cleanup() { m_recent.reset(); }
    void removalAsksFirst_data();
    void removalAsksFirst();
    void deletingOffersUndo();
    void removalCanBeUndone_data();
    void removalCanBeUndone();
    void finding();
    void chipsNarrow();
    void menuOffersWhatIsPossible_data();
    void menuOffersWhatIsPossible();
    void menuActions_data();
    void menuActions();
    void sharingWithoutServer();
    void openingSeveral();

private:
    template <class Dialog> Dialog *dialog() const
    {
        auto *found = page()->findChild<Dialog *>();
        return found && found->isVisible() ? found : nullptr;
    }
    static QStringList textsOf(const QWidget *widget);
    QAction *action(const QString &text) const;
};

QStringList TestPageActions::textsOf(const QWidget *widget)
{
    QStringList texts{widget->windowTitle()};
    const auto labels = widget->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        texts << label->text();
    const auto buttons = widget->findChildren<QPushButton *>();
    for (const QPushButton *button : buttons)
        texts << button->text();
    return texts;
}

QAction *TestPageActions::action(const QString &text) const
{
    const auto actions = page()->openMenu()->actions();
    for (QAction *action : actions) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

void TestPageActions::removalAsksFirst_data()
{
    QTest::addColumn<bool>("deletesFile");
    QTest::addColumn<QStringList>("texts");
    const QStringList remove{QStringLiteral("Remove record"),
        QStringLiteral("Are you sure to remove 1.odt record ?"),
        QStringLiteral("Remove record then file will not delete from disk"),
        QStringLiteral("Remove record then file will not apperar to list"), QStringLiteral("Remove"),
        QStringLiteral("Cancel")};
    const QStringList erase{QStringLiteral("Delete file"),
        QStringLiteral("Are you sure to delete file 1.odt ?"),
        QStringLiteral("The file will into the system recycle bin after delete."), QStringLiteral("Delete"),
        QStringLiteral("Cancel")};
    QTest::newRow("remove, yes") << false << remove;
    QTest::newRow("delete, no") << true << erase; // yes: deletingOffersUndo()
}

void TestPageActions::removalAsksFirst()
{
    QFETCH(bool, deletesFile);
    load(3);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, centreOf(1));
    QTest::keyClick(view(), Qt::Key_Delete, deletesFile ? Qt::ShiftModifier : Qt::NoModifier);
    QDialog *asked =
        deletesFile ? static_cast<QDialog *>(dialog<DeleteFileDialog>()) : dialog<RemoveRecordDialog>();
    QVERIFY(asked);
    QTEST(textsOf(asked), "texts");
    QCOMPARE(m_log, QStringList()); // nothing before the answer
    QTest::keyClick(asked, deletesFile ? Qt::Key_Escape : Qt::Key_Return);
    QVERIFY(!deletesFile || m_proxy->asked.isEmpty());
    QCOMPARE(m_log, deletesFile ? QStringList() : QStringList(QStringLiteral("forget 1")));
    Q_EMIT m_events->recordsRemoved({record(QStringLiteral("1"), 5)}); // by the user, or by somebody else
    QCOMPARE(view()->currentId(), QStringLiteral("2"));
    QCOMPARE(view()->selectedCount(), deletesFile ? 0 : 1);
}

void TestPageActions::deletingOffersUndo()
{
    load(3);
    view()->selectAll();
    page()->onMenuRemoveFileAction(row(0));
    auto *asked = dialog<DeleteFileDialog>();
    QVERIFY(asked);
    QTest::mouseClick(button(QStringLiteral("Delete"), asked), Qt::LeftButton);
    for (int i = 0; i < 3; ++i)
        QVERIFY(m_proxy->answerRemove(i != 2)); // the last goes to the desktop's trash
    const auto notices = page()->findChildren<NoticeBar *>();
    QVERIFY(notices.last()->isVisible());
    QVERIFY(notices.last()->text().contains(QLatin1Char('3')));
    notice()->showText(QStringLiteral("something else")); // leaves the offer where it is
    QVERIFY(button(QStringLiteral("Undo")));
    m_log.clear();
    view()->setFocus();
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!button(QStringLiteral("Undo")));
    QCOMPARE(m_trash.asked.last(), QStringLiteral("trash:/data/docs/2.odt"));
    QCOMPARE(m_proxy->asked.last(), QStringLiteral("recoverRecycles bin"));
}

void TestPageActions::removalCanBeUndone_data()
{
    QTest::addColumn<bool>("elsewhereOnly");
    QTest::addColumn<bool>("roams");
    QTest::addColumn<QString>("says");
    QTest::addColumn<QString>("undone");
    QTest::newRow("here") << false << false << "“1.odt” was removed from the list."
                          << "unforget 1";
    QTest::newRow("on all devices") << false << true << "on this device only"
                                    << "unforget 1";
    QTest::newRow("of another device") << true << true << "cannot be undone"
                                       << "";
    QTest::newRow("all cleared meanwhile") << false << false << "removed"
                                           << "";
}

void TestPageActions::removalCanBeUndone()
{
    QFETCH(bool, elsewhereOnly);
    QFETCH(bool, roams);
    QFETCH(QString, says);
    make(3);
    if (roams)
        m_store.content[1].roamingId = QStringLiteral("r1");
    if (elsewhereOnly)
        m_store.content[1].path.clear();
    page()->onWindowFirstShown();
    view()->setFocus();
    page()->onMenuRemoveRecordAction(row(1));
    QVERIFY(dialog<RemoveRecordDialog>()->findChildren<QLabel *>().size() == (roams ? 4 : 3));
    dialog<RemoveRecordDialog>()->accept();
    QString said;
    for (const NoticeBar *each : page()->findChildren<NoticeBar *>())
        said += each->isVisible() ? each->text() : QString();
    QVERIFY2(said.contains(says), qPrintable(said));
    if (QTest::currentDataTag() == QByteArray("all cleared meanwhile"))
        Q_EMIT m_events->historyCleared(true);
    m_log.clear();
    Q_EMIT m_events->recordsRemoved({m_store.content.at(1)});
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    QTEST(m_log.join(QLatin1Char(';')), "undone");
    Q_EMIT m_events->recordsAdded({m_store.content.at(1)});
    QCOMPARE(
        view()->selectedIds(), m_log.isEmpty() ? QStringList() : QStringList(row(1).data(256).toString()));
}

void TestPageActions::finding()
{
    struct Header final : BoxPageHost
    {
        QString text;
        void beginFinding(const QString &typed) override { text += typed; }
        void clearFilter() override { text.clear(); }
    } header;
    load(12);
    page()->setHost(&header);
    QTest::keyClick(view(), '1'); // typing on the list begins to find
    QCOMPARE(header.text, QStringLiteral("1"));
    page()->setFilterText(header.text);
    QCOMPARE(view()->model()->rowCount(), 3); // 1, 10, 11
    page()->findEnded(true);
    QVERIFY(view()->hasFocus());
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(m_opener.asked, QStringList(QStringLiteral("/data/docs/1.odt")));
    QTest::keyClick(view(), Qt::Key_Enter, Qt::AltModifier | Qt::KeypadModifier);
    QCOMPARE(m_opener.revealed, QStringList(QStringLiteral("/data/docs/1.odt")));
    page()->setFilterText(QStringLiteral("1x"));
    QCOMPARE(page()->state(), State::NothingFound);
    QTest::mouseClick(button(QStringLiteral("Show All")), Qt::LeftButton);
    QCOMPARE(view()->model()->rowCount(), 12);
    QCOMPARE(header.text, QString());
    QVERIFY(view()->hasFocus());
}

void TestPageActions::chipsNarrow()
{
    make(4);
    m_store.content[1].path = QStringLiteral("/data/docs/plan.pdf");
    page()->onWindowFirstShown();
    const auto chips = page()->findChildren<Chip *>();
    const auto pdf = std::find_if(
        chips.cbegin(), chips.cend(), [](Chip *chip) { return chip->text() == QLatin1String("PDF"); });
    QVERIFY(pdf != chips.cend());
    QTest::mouseClick(*pdf, Qt::LeftButton);
    QCOMPARE(view()->model()->rowCount(), 1);
    QCOMPARE(row(0).data().toString(), QStringLiteral("plan.pdf"));
    Q_EMIT m_events->recordsRemoved({m_store.content.at(1)});
    QCOMPARE(page()->state(), State::NothingFound);
    QTest::mouseClick(button(QStringLiteral("Show All")), Qt::LeftButton);
    QCOMPARE(page()->state(), State::List);
    QCOMPARE(view()->model()->rowCount(), 3);
    QVERIFY(chips.first()->isChecked());
}

void TestPageActions::menuOffersWhatIsPossible_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("disabled");
    QTest::addColumn<QStringList>("absent");
    const QStringList nothing;
    const QStringList needFile{QStringLiteral("Open"), QStringLiteral("Open With"),
        QStringLiteral("Open Folder"), QStringLiteral("Copy"), QStringLiteral("Copy Path"),
        QStringLiteral("Move to Recycle Bin")};
    const QStringList single{QStringLiteral("Open With"), QStringLiteral("Open Folder"),
        QStringLiteral("share doc"), QStringLiteral("Tip-Off")};
    QTest::newRow("file") << QStringLiteral("file") << 1 << nothing << QStringList(QStringLiteral("Tip-Off"));
    QTest::newRow("missing file") << QStringLiteral("missing") << 1 << needFile
                                  << QStringList(QStringLiteral("Tip-Off"));
    QTest::newRow("in the cloud only")
        << QStringLiteral("cloud") << 1 << QStringList(needFile.mid(0, 5)) << nothing;
    QTest::newRow("several files") << QStringLiteral("file") << 2 << nothing
                                   << single
            + QStringList(QStringLiteral("Move to Recycle Bin")); // with how many
    QTest::newRow("a missing one among them") << QStringLiteral("missing") << 2 << nothing << single;
}

void TestPageActions::menuOffersWhatIsPossible()
{
    QFETCH(QString, kind);
    QFETCH(int, count);
    QFETCH(QStringList, disabled);
    QFETCH(QStringList, absent);
    make(3);
    RecentFileInfo &first = m_store.content[0];
    if (kind == QLatin1String("missing"))
        first.presence = RecentFileInfo::Presence::Missing;
    if (kind == QLatin1String("cloud")) {
        first.path.clear();
        first.roaming = first.cloudBacked = true;
        first.cloudFileId = 9;
    }
    page()->onWindowFirstShown();
    for (int i = 0; i < count; ++i)
        QTest::mouseClick(
            view()->viewport(), Qt::LeftButton, i ? Qt::ControlModifier : Qt::NoModifier, centreOf(i));
    page()->onCustomContextMenuRequested(centreOf(0));
    QVERIFY(page()->openMenu());
    for (const char *text : {"Open", "Open With", "Open Folder", "share doc", "Pin to Top", "Copy",
             "Copy Path", "Remove", "Move to Recycle Bin", "Tip-Off"}) {
        const QString name = QString::fromLatin1(text);
        const QAction *found = action(name);
        QVERIFY2(bool(found) != absent.contains(name), text);
        if (found)
            QVERIFY2(found->isEnabled() != disabled.contains(name), text);
    }
    page()->openMenu()->close();
}

void TestPageActions::menuActions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("happens");
    QTest::newRow("open") << QStringLiteral("Open") << QStringLiteral("open /data/docs/0.odt");
    QTest::newRow("folder") << QStringLiteral("Open Folder") << QStringLiteral("reveal /data/docs/0.odt");
    QTest::newRow("pin") << QStringLiteral("Pin to Top") << QStringLiteral("pin 0;unpin 0");
    QTest::newRow("copy path") << QStringLiteral("Copy Path") << QStringLiteral("text /data/docs/0.odt");
    QTest::newRow("copy") << QStringLiteral("Copy") << QStringLiteral("url file:///data/docs/0.odt");
    QTest::newRow("program") << QStringLiteral("Writer") << QStringLiteral("open writer /data/docs/0.odt");
}

void TestPageActions::menuActions()
{
    QFETCH(QString, text);
    m_opener.programs = {{QStringLiteral("writer"), QStringLiteral("Writer"), {}, false}};
    load(2);
    view()->setCurrentIndex(row(0));
    QContextMenuEvent byKeyboard(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(view(), &byKeyboard);
    KRecentFileMenu *menu = page()->openMenu();
    QVERIFY(menu && menu->isVisible());
    const auto actions = menu->findChildren<QAction *>() + menu->findChild<QMenu *>()->actions();
    QApplication::clipboard()->setText({});
    for (QAction *each : actions) {
        if (each->text() == text)
            each->trigger();
    }
    menu->close();
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    QStringList happened = m_log.filter(QStringLiteral("pin"));
    for (const QString &path : std::as_const(m_opener.asked))
        happened << QStringLiteral("open ") + path;
    for (const QString &path : std::as_const(m_opener.revealed))
        happened << QStringLiteral("reveal ") + path;
    const QMimeData *clip = QApplication::clipboard()->mimeData();
    if (clip->hasUrls())
        happened << QStringLiteral("url ") + clip->urls().first().toString();
    else if (clip->hasText() && !clip->text().isEmpty())
        happened << QStringLiteral("text ") + clip->text();
    happened.removeDuplicates();
    QTEST(happened.join(QLatin1Char(';')), "happens");
}

void TestPageActions::sharingWithoutServer()
{
    load(2);
    QSignalSpy shares(page(), &ZelBoxRecentFileWidgetBase::sigRecentFileItemShare);
    page()->onShareDoc(row(1), true);
    QVERIFY(dialog<ShareDialog>()); // nobody is logged in
    dialog<ShareDialog>()->reject();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    m_proxy->logIn(QStringLiteral("me"));
    m_proxy->asked.clear();
    page()->onShareDoc(row(1), true);
    QCOMPARE(m_proxy->asked.size(), 1);
    QVERIFY(!dialog<ShareDialog>());                      // until the service says that it does not
    zel::vela::GetCurrentDefaultRoamingBoxResult roaming; // asked for at the login
    QVERIFY(m_proxy->answer("getCurrentDefaultRoamingBox", roaming, false));
    zel::vela::ShowFileShareDlgResult result;
    result.state = 1;
    QVERIFY(m_proxy->answer("showFileShareDlg", result));
    auto *own = dialog<ShareDialog>();
    QVERIFY(own);
    Q_EMIT own->copyFileChosen();
    QCOMPARE(QApplication::clipboard()->mimeData()->urls(),
        QList<QUrl>{QUrl(QStringLiteral("file:///data/docs/1.odt"))});
    QVERIFY(notice()->isVisible());
    QCOMPARE(shares.size(), 2);
}

void TestPageActions::openingSeveral()
{
    load(12);
    view()->selectAll();
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(m_opener.asked, QStringList()); // a dozen programs at once are an accident
    QVERIFY(notice()->isVisible());
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, centreOf(0));
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::ControlModifier, centreOf(2));
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(m_opener.asked,
        QStringList({QStringLiteral("/data/docs/0.odt"), QStringLiteral("/data/docs/2.odt")}));
    m_opener.answer(m_opener.asked.constFirst(), KDocumentOpener::Outcome::Missing);
    QVERIFY(notice()->text().contains(QLatin1String("0.odt")));
    page()->setFilterText(QStringLiteral("1")); // the user does something else
    QVERIFY(!notice()->isVisible());
}

QTEST_MAIN(TestPageActions)
#include "tst_pageactions.moc"

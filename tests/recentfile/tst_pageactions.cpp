#include "recentfile/pagefixture.h"

#include "recentfile/ui/recentdialogs.h"
#include "recentfile/ui/recentfilemenu.h"
#include "recentfile/ui/recentfiletitlewidget.h"
#include "recentfile/ui/recentguides.h"
#include "recentfile/ui/sharedialog.h"
#include "widgets/chip.h"

using namespace recenttest;

/// What a person does on the page, by mouse and keyboard.
class TestPageActions : public QObject, private PageFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { clear(); }
    void cleanup() { m_recent.reset(); }
    void removalAsksFirst_data()
    {
        const auto row = zeltest::table<bool, QStringList>("deletesFile", "texts");
        const QStringList remove{"Remove record"_s, "Are you sure to remove 1.odt record ?"_s,
            "Remove record then file will not delete from disk"_s,
            "Remove record then file will not apperar to list"_s, "Remove"_s, "Cancel"_s};
        const QStringList erase{"Delete file"_s, "Are you sure to delete file 1.odt ?"_s,
            "The file will into the system recycle bin after delete."_s, "Delete"_s, "Cancel"_s};
        row("remove, yes", false, remove);
        row("delete, no", true, erase); // yes: deletingOffersUndo()
    }
    void removalAsksFirst()
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
        QCOMPARE(m_log, deletesFile ? QStringList() : QStringList("forget 1"_s));
        Q_EMIT m_events->recordsRemoved({record("1"_s, 5)}); // by the user, or by somebody else
        QCOMPARE(view()->currentId(), "2"_s);
        QCOMPARE(view()->selectedCount(), deletesFile ? 0 : 1);
    }

    void deletingOffersUndo()
    {
        load(3);
        view()->selectAll();
        page()->onMenuRemoveFileAction(row(0));
        auto *asked = dialog<DeleteFileDialog>();
        QVERIFY(asked);
        QTest::mouseClick(button("Delete"_s, asked), Qt::LeftButton);
        for (int i = 0; i < 3; ++i)
            QVERIFY(m_proxy->answerRemove(i != 2)); // the last goes to the desktop's trash
        const auto notices = page()->findChildren<NoticeBar *>();
        QVERIFY(notices.last()->isVisible());
        QVERIFY(notices.last()->text().contains(QLatin1Char('3')));
        notice()->showText("something else"_s); // leaves the offer where it is
        QVERIFY(button("Undo"_s));
        m_log.clear();
        view()->setFocus();
        QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!button("Undo"_s));
        QCOMPARE(m_trash.asked.last(), "trash:/data/docs/2.odt"_s);
        QCOMPARE(m_proxy->asked.last(), "recoverRecycles bin"_s);
    }

    void removalCanBeUndone_data()
    {
        const auto row =
            zeltest::table<bool, bool, QString, QString>("elsewhereOnly", "roams", "says", "undone");
        row("here", false, false, "“1.odt” was removed from the list.", "unforget 1");
        row("on all devices", false, true, "on this device only", "unforget 1");
        row("of another device", true, true, "cannot be undone", "");
        row("all cleared meanwhile", false, false, "removed", "");
    }
    void removalCanBeUndone()
    {
        const auto [elsewhereOnly, roams, says] = zeltest::row<bool, bool, QString>();
        make(3);
        if (roams)
            m_store.content[1].roamingId = "r1"_s;
        if (elsewhereOnly)
            m_store.content[1].path.clear();
        page()->onWindowFirstShown();
        view()->setFocus();
        page()->onMenuRemoveRecordAction(row(1));
        QVERIFY(dialog<RemoveRecordDialog>()->findChildren<QLabel *>().size() == (roams ? 4 : 3));
        dialog<RemoveRecordDialog>()->accept();
        QVERIFY2(said().contains(says), qPrintable(said()));
        if (QTest::currentDataTag() == QByteArray("all cleared meanwhile"))
            Q_EMIT m_events->historyCleared(true);
        m_log.clear();
        Q_EMIT m_events->recordsRemoved({m_store.content.at(1)});
        QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
        QTEST(m_log.join(QLatin1Char(';')), "undone");
        Q_EMIT m_events->recordsAdded({m_store.content.at(1)});
        QCOMPARE(view()->selectedIds(),
            m_log.isEmpty() ? QStringList() : QStringList(row(1).data(256).toString()));
    }

    void finding()
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
        QCOMPARE(header.text, "1"_s);
        page()->setFilterText(header.text);
        QCOMPARE(view()->model()->rowCount(), 3); // 1, 10, 11
        page()->findEnded(true);
        QVERIFY(view()->hasFocus());
        QTest::keyClick(view(), Qt::Key_Return);
        QCOMPARE(m_opener.asked, QStringList("/data/docs/1.odt"_s));
        QTest::keyClick(view(), Qt::Key_Enter, Qt::AltModifier | Qt::KeypadModifier);
        QCOMPARE(m_opener.revealed, QStringList("/data/docs/1.odt"_s));
        page()->setFilterText("1x"_s);
        QCOMPARE(page()->state(), State::NothingFound);
        QTest::mouseClick(button("Show All"_s), Qt::LeftButton);
        QCOMPARE(view()->model()->rowCount(), 12);
        QCOMPARE(header.text, QString());
        QVERIFY(view()->hasFocus());
    }

    void chipsNarrow()
    {
        make(4);
        m_store.content[1].path = "/data/docs/plan.pdf"_s;
        page()->onWindowFirstShown();
        const auto chips = page()->findChildren<Chip *>();
        const auto pdf =
            std::find_if(chips.cbegin(), chips.cend(), [](Chip *chip) { return chip->text() == "PDF"_s; });
        QVERIFY(pdf != chips.cend());
        QTest::mouseClick(*pdf, Qt::LeftButton);
        QCOMPARE(view()->model()->rowCount(), 1);
        QCOMPARE(row(0).data().toString(), "plan.pdf"_s);
        Q_EMIT m_events->recordsRemoved({m_store.content.at(1)});
        QCOMPARE(page()->state(), State::NothingFound);
        QTest::mouseClick(button("Show All"_s), Qt::LeftButton);
        QCOMPARE(page()->state(), State::List);
        QCOMPARE(view()->model()->rowCount(), 3);
        QVERIFY(chips.first()->isChecked());
    }

    void menuOffersWhatIsPossible_data()
    {
        const auto row =
            zeltest::table<QString, int, QStringList, QStringList>("kind", "count", "disabled", "absent");
        const QStringList nothing;
        const QStringList needFile{
            "Open"_s, "Open With"_s, "Open Folder"_s, "Copy"_s, "Copy Path"_s, "Move to Recycle Bin"_s};
        const QStringList single{"Open With"_s, "Open Folder"_s, "share doc"_s, "Tip-Off"_s};
        row("file", "file"_s, 1, nothing, QStringList("Tip-Off"_s));
        row("missing file", "missing"_s, 1, needFile, QStringList("Tip-Off"_s));
        row("in the cloud only", "cloud"_s, 1, QStringList(needFile.mid(0, 5)), nothing);
        row("several files", "file"_s, 2, nothing,
            single + QStringList("Move to Recycle Bin"_s)); // with how many
        row("a missing one among them", "missing"_s, 2, nothing, single);
    }
    void menuOffersWhatIsPossible()
    {
        const auto [kind, count, disabled, absent] = zeltest::row<QString, int, QStringList, QStringList>();
        make(3);
        RecentFileInfo &first = m_store.content[0];
        if (kind == "missing"_s)
            first.presence = RecentFileInfo::Presence::Missing;
        if (kind == "cloud"_s) {
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

    void menuActions_data()
    {
        const auto row = zeltest::table<QString, QString>("text", "happens");
        row("open", "Open"_s, "open /data/docs/0.odt"_s);
        row("folder", "Open Folder"_s, "reveal /data/docs/0.odt"_s);
        row("pin", "Pin to Top"_s, "pin 0;unpin 0"_s);
        row("copy path", "Copy Path"_s, "text /data/docs/0.odt"_s);
        row("copy", "Copy"_s, "url file:///data/docs/0.odt"_s);
        row("program", "Writer"_s, "open writer /data/docs/0.odt"_s);
    }
    void menuActions()
    {
        QFETCH(QString, text);
        m_opener.programs = {{"writer"_s, "Writer"_s, {}, false}};
        load(2);
        view()->setCurrentIndex(row(0));
        QContextMenuEvent byKeyboard(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(view(), &byKeyboard);
        KRecentFileMenu *menu = page()->openMenu();
        QVERIFY(menu && menu->isVisible());
        Q_EMIT m_events->recordsArrived(); // all rows go and come
        const auto actions = menu->findChildren<QAction *>() + menu->findChild<QMenu *>()->actions();
        QApplication::clipboard()->setText({});
        for (QAction *each : actions) {
            if (each->text() == text)
                each->trigger();
        }
        menu->close();
        QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
        QStringList happened = m_log.filter("pin"_s);
        for (const QString &path : std::as_const(m_opener.asked))
            happened << "open "_s + path;
        for (const QString &path : std::as_const(m_opener.revealed))
            happened << "reveal "_s + path;
        const QMimeData *clip = QApplication::clipboard()->mimeData();
        if (clip->hasUrls())
            happened << "url "_s + clip->urls().first().toString();
        else if (clip->hasText() && !clip->text().isEmpty())
            happened << "text "_s + clip->text();
        happened.removeDuplicates();
        QTEST(happened.join(QLatin1Char(';')), "happens");
    }

    void sharingWithoutServer()
    {
        load(2);
        QSignalSpy shares(page(), &ZelBoxRecentFileWidgetBase::sigRecentFileItemShare);
        page()->onShareDoc(row(1), true);
        QVERIFY(dialog<ShareDialog>()); // nobody is logged in
        dialog<ShareDialog>()->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        m_proxy->logIn("me"_s);
        m_proxy->asked.clear();
        page()->onShareDoc(row(1), true);
        QCOMPARE(m_proxy->asked.size(), 1);
        QVERIFY(!dialog<ShareDialog>());                      // until the service says that it does not
        zel::vela::GetCurrentDefaultRoamingBoxResult roaming; // asked for at the login
        QVERIFY(m_proxy->answer("getCurrentDefaultRoamingBox", roaming, false));
        QVERIFY(m_proxy->answer("showFileShareDlg", filled(&zel::vela::ShowFileShareDlgResult::state, 1)));
        auto *own = dialog<ShareDialog>();
        QVERIFY(own);
        Q_EMIT own->copyFileChosen();
        const QMimeData *copied = QApplication::clipboard()->mimeData();
        QCOMPARE(copied->urls(), QList<QUrl>{QUrl("file:///data/docs/1.odt"_s)});
        QCOMPARE(copied->data("x-special/gnome-copied-files"_s), QByteArray("copy\nfile:///data/docs/1.odt"));
        QVERIFY(notice()->isVisible());
        QCOMPARE(shares.size(), 2);
    }

    void openingSeveral()
    {
        load(12);
        view()->selectAll();
        QTest::keyClick(view(), Qt::Key_Return);
        QCOMPARE(m_opener.asked, QStringList()); // a dozen programs at once are an accident
        QVERIFY(notice()->isVisible());
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, centreOf(0));
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::ControlModifier, centreOf(2));
        QTest::keyClick(view(), Qt::Key_Return);
        QCOMPARE(m_opener.asked, QStringList({"/data/docs/0.odt"_s, "/data/docs/2.odt"_s}));
        m_opener.answer(m_opener.asked.constFirst(), KDocumentOpener::Outcome::Missing);
        QVERIFY(notice()->text().contains("0.odt"_s));
        page()->setFilterText("1"_s); // the user does something else
        QVERIFY(!notice()->isVisible());
    }

private:
    template <class Dialog> Dialog *dialog() const
    {
        auto *found = page()->findChild<Dialog *>();
        return found && found->isVisible() ? found : nullptr;
    }
    static QStringList textsOf(const QWidget *widget)
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

    QAction *action(const QString &text) const
    {
        const auto actions = page()->openMenu()->actions();
        for (QAction *action : actions) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }
};

QTEST_MAIN(TestPageActions)
#include "tst_pageactions.moc"

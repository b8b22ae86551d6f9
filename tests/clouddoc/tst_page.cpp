#include "clouddoc/pagefixture.h"

#include "clouddoc/ui/breadcrumbbar.h"
#include "clouddoc/ui/clouddrag.h"
#include "clouddoc/ui/cloudsortmenu.h"
#include "clouddoc/ui/conflictdialog.h"
#include "clouddoc/ui/movedialog.h"
#include "clouddoc/ui/transferlistview.h"
#include "clouddoc/ui/transferpanel.h"
#include "lists/ui/columnheading.h"

#include <QClipboard>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

using zel::clouddoc::CarriedItems;

static QString s(const char *latin)
{
    return QString::fromLatin1(latin);
}

/// The page with real keys, clicks and drops.
class TestPage : public QObject, private PageFixture
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { clear(); }
    void statesOfALoad();
    void quickFoldersDoNotFlash();
    void goesThroughFolders();
    void renames();
    void removesAndOffersUndo();
    void undoUntilTheNextAction();
    void uploadsAreSelected_data();
    void uploadsAreSelected();
    void newFolderIsNamedAtOnce();
    void dropsGoWhereTheyFall_data();
    void dropsGoWhereTheyFall();
    void dragOpensFolders();
    void carriesByClipboard_data();
    void carriesByClipboard();
    void opensDocuments();
    void asksAboutTakenNames();
    void movesByDialog();
    void transfersCanBeCancelled();
    void headingsAndMenuSortAlike();

private:
    void drop(QWidget *target, const QPoint &pos, QMimeData *data)
    {
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(pos, actions, data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        QDragMoveEvent move(pos, actions, data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &move);
        QDropEvent event(pos, actions, data, Qt::LeftButton, {});
        if (move.isAccepted())
            QApplication::sendEvent(target, &event);
    }
    QString crumbs() const
    {
        QStringList names;
        for (const BreadcrumbBar::Crumb &crumb : find<BreadcrumbBar>()->crumbs())
            names << crumb.name;
        return names.join(QLatin1Char('/'));
    }
    QStringList &wanted() { return m_cloud->wanted; }
};

void TestPage::statesOfALoad()
{
    make();
    QCOMPARE(state(), State::Waiting);
    QVERIFY(answer(s("root"), {}));
    QCOMPARE(state(), State::Empty);
    QVERIFY(button("New Folder", page()->states()));
    m_cloud->tellCreated(s("a.txt"));
    QCOMPARE(state(), State::List);
    page()->setFilterText(s("zebra"));
    QCOMPARE(state(), State::NothingFound);
    QTest::mouseClick(button("Show All"), Qt::LeftButton);
    QCOMPARE(state(), State::List);

    make();
    m_cloud->disconnectNow();
    QCOMPARE(state(), State::TimedOut);
    m_cloud->connectNow();                                                          // comes back by itself
    QVERIFY(m_cloud->answer("getInfoList", zel::vela::GetInfoListResult(), false)); // the one that was lost
    QVERIFY(answer(s("root"), {s("a.txt")}));
    QCOMPARE(state(), State::List);

    make();
    QVERIFY(m_cloud->refuse("getInfoList", zel::vela::GetInfoListResult(), 5));
    QCOMPARE(state(), State::Failed);
    QTest::mouseClick(button("Retry"), Qt::LeftButton);
    QVERIFY(answer(s("root"), {s("a.txt")}));
    QCOMPARE(state(), State::List);
}

void TestPage::quickFoldersDoNotFlash()
{
    load({s("a/"), s("b.txt")});
    view()->setCurrentIndex(view()->model()->index(0, 0));
    key(Qt::Key_Return);
    QCOMPARE(view()->model()->rowCount(), 0);
    QCOMPARE(state(), State::List);
    QVERIFY(!view()->updatesEnabled()); // the picture of the rows before stays
    QVERIFY(answer(s("a"), {s("c.txt")}));
    QVERIFY(view()->updatesEnabled());
    key(Qt::Key_Backspace);
    QTRY_COMPARE(state(), State::Waiting); // a slow one
    QVERIFY(view()->updatesEnabled());
}

void TestPage::goesThroughFolders()
{
    load({s("a/"), s("b/"), s("c.txt")});
    doubleClick(1);
    QVERIFY(answer(s("b"), {s("d.txt")}));
    QCOMPARE(crumbs(), s("Cloud documents/b"));
    QVERIFY(view()->hasFocus());

    key(Qt::Key_Up, Qt::AltModifier);
    QVERIFY(answer(s("root"), {s("a/"), s("b/"), s("c.txt")}));
    QCOMPARE(view()->selectedIds(), QStringList(s("b"))); // where one came from
    key(Qt::Key_Left, Qt::AltModifier);
    QVERIFY(answer(s("b"), {s("d.txt")}));
    QTest::mouseClick(view()->viewport(), Qt::ForwardButton, {}, centre(0));
    QVERIFY(answer(s("root"), {s("a/"), s("b/")}));
    QTest::mouseClick(view()->viewport(), Qt::BackButton, {}, {20, 300});
    QVERIFY(answer(s("b"), {s("d.txt")}));
    const auto steps = find<BreadcrumbBar>()->findChildren<QAbstractButton *>();
    for (QAbstractButton *step : steps) {
        if (step->text() == s("Cloud documents") && step->isVisible())
            QTest::mouseClick(step, Qt::LeftButton);
    }
    QVERIFY(answer(s("root"), {s("a/"), s("b/")}));
    QCOMPARE(crumbs(), s("Cloud documents"));
}

void TestPage::renames()
{
    load({s("report.final.txt"), s("taken.txt")});
    click(0);
    key(Qt::Key_F2);
    auto *edit = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(edit);
    QCOMPARE(edit->selectedText(), s("report.final"));
    QTest::keyClicks(edit, s("taken"));
    key(Qt::Key_Return);
    QVERIFY(edit->isVisible()); // the name is taken
    QVERIFY(wanted().isEmpty());
    QTest::keyClick(edit, Qt::Key_Delete); // does not reach the document
    edit->setText(s("  new.txt "));
    key(Qt::Key_Return);
    QTRY_COMPARE(wanted(), QStringList(s("rename report.final.txt -> new.txt")));
    QVERIFY(m_cloud->refuse("rename", zel::vela::RenameResult(), 5));
    QVERIFY2(notice().contains(s("permission")), qPrintable(notice()));
    QVERIFY(view()->hasFocus());

    key(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), s("x"));
    key(Qt::Key_Escape);
    QCOMPARE(wanted().size(), 1);

    key(Qt::Key_F2); // somebody else renames it meanwhile; what was not typed does not undo that
    auto theirs = FakeCloud::item(s("report.final.txt"));
    theirs.name = "theirs.txt";
    m_cloud->tellProperty(theirs, "name");
    view()->setFocus();
    QTRY_VERIFY(!view()->isRenaming());
    QCOMPARE(wanted().size(), 1);
}

void TestPage::removesAndOffersUndo()
{
    load({s("a.txt"), s("b.txt"), s("c.txt"), s("d.txt")});
    click(1);
    click(2, Qt::ShiftModifier);
    key(Qt::Key_Delete);
    key(Qt::Key_Delete); // again before it is answered
    QCOMPARE(wanted(), QStringList(s("batchRemove b.txt c.txt")));
    zel::vela::BatchRemoveResult removed;
    removed.removedIds = {"b.txt", "c.txt"};
    removed.extraParam = {{"b.txt", "bin1"}, {"c.txt", "bin2"}};
    QVERIFY(m_cloud->answer("batchRemove", removed));
    QCOMPARE(view()->model()->rowCount(), 2);
    QCOMPARE(view()->currentId(), s("d.txt"));
    QVERIFY(notice().startsWith(QLatin1Char('2')));
    QTest::mouseClick(button("Undo"), Qt::LeftButton);
    QCOMPARE(m_cloud->waiting("recoverRecycles"), 1);

    QCOMPARE(view()->selectedIds(), QStringList(s("d.txt"))); // who removes goes on with the next one
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Delete);
    removed.removedIds = {"a.txt"};
    removed.extraParam = {{"a.txt", "bin3"}};
    removed.failedItems["d.txt"].errResult = "denied";
    QVERIFY(m_cloud->answer("batchRemove", removed));
    QVERIFY2(notice().contains(s("permission")), qPrintable(notice()));
    QTest::mouseClick(button("Undo"), Qt::LeftButton); // what was removed can be had back all the same
    QCOMPARE(m_cloud->askedFor("recoverRecycles"), QStringList({s("bin1 bin2"), s("bin3")}));
    m_cloud->tellCreated(s("e.txt"));
    click(0);
    m_cloud->tellRemoved(s("d.txt")); // which the user could not remove: nothing follows it
    QCOMPARE(view()->selectedIds(), QStringList());
}

void TestPage::undoUntilTheNextAction()
{
    load({s("a.txt"), s("b/")});
    QAction *undo = page()->action(CloudCommand::Undo);
    QVERIFY(!undo->isEnabled());
    page()->logic()->rename(s("a.txt"), s("n.txt"));
    zel::vela::RenameResult renamed;
    renamed.item = FakeCloud::item(s("a.txt"));
    renamed.item.name = "n.txt";
    QVERIFY(m_cloud->answer("rename", renamed));
    QVERIFY2(notice().contains(s("n.txt")), qPrintable(notice()));
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(wanted().last(), s("rename a.txt -> a.txt"));
    QVERIFY(!undo->isEnabled() && notice().isEmpty());
    renamed.item.name = "a.txt";
    QVERIFY(m_cloud->answer("rename", renamed));
    QVERIFY2(notice().endsWith(s(" again.")), qPrintable(notice()));

    page()->logic()->move({s("a.txt")}, s("b"));
    zel::vela::CloudItemsMoveToResult moved;
    moved.items = {FakeCloud::item(s("a.txt"), s("b"))};
    QVERIFY(m_cloud->answer("cloudItemsMoveTo", moved));
    QVERIFY2(
        notice().contains(s("a.txt")) && notice().contains(QString::fromUtf8("“b”")), qPrintable(notice()));
    page()->logic()->openFolder(s("b")); // where nothing would be seen of it
    QVERIFY(!undo->isEnabled() && notice().isEmpty());
}

void TestPage::uploadsAreSelected_data()
{
    QTest::addColumn<QString>("meanwhile");
    QTest::addColumn<QString>("selected");
    QTest::newRow("waited") << ""
                            << "c.txt";
    QTest::newRow("picked another") << "pick"
                                    << "b.txt";
    QTest::newRow("filtered") << "filter"
                              << "a.txt";
}

void TestPage::uploadsAreSelected()
{
    QFETCH(QString, meanwhile);
    QStringList names{s("a.txt"), s("b.txt")};
    for (int i = 0; i < 40; ++i)
        names << s("b%1.txt").arg(i);
    load(names);
    click(0);
    CloudTransfer upload;
    upload.id = s("t");
    upload.folderId = page()->logic()->folderId();
    Q_EMIT page()->logic()->transfersStarted({upload});
    if (meanwhile == s("pick"))
        click(1);
    if (meanwhile == s("filter"))
        page()->setFilterText(s("txt"));
    upload.state = CloudTransfer::State::Done;
    upload.itemId = s("c.txt");
    Q_EMIT page()->logic()->transferEnded(upload);
    zel::vela::NotifyFileCreationArg created;
    created.item = FakeCloud::item(s("c.txt"), upload.folderId);
    Q_EMIT m_cloud->velaEventObject()->signal_notifyFileCreation(created);
    QTEST(view()->selectedIds().join(QLatin1Char(' ')), "selected");
    QVERIFY(view()->viewport()->rect().contains(view()->visualRect(view()->currentIndex())));
}

void TestPage::newFolderIsNamedAtOnce()
{
    load({s("New Folder/")});
    page()->action(CloudCommand::NewFolder)->trigger();
    QCOMPARE(wanted(), QStringList(s("createFolder New Folder (2)")));
    zel::vela::CreateFolderResult made;
    made.item = FakeCloud::item(s("New Folder (2)/"));
    QVERIFY(m_cloud->answer("createFolder", made));
    auto *edit = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(edit);
    QCOMPARE(edit->selectedText(), s("New Folder (2)"));
    QTest::keyClicks(edit, s("Mine"));
    QTest::keyPress(edit, Qt::Key_Return);
    zel::vela::RenameResult named;
    named.item = made.item;
    named.item.name = "Mine";
    QTRY_COMPARE(m_cloud->waiting("rename"), 1);
    QVERIFY(m_cloud->answer("rename", named));
    QVERIFY2(notice().contains(s("created")), qPrintable(notice())); // and not renamed
    page()->action(CloudCommand::Undo)->trigger();
    QCOMPARE(wanted().last(), s("batchRemove New Folder (2)"));
    for (const char *name : {"New Folder (2)", "New Folder (3)"}) {
        page()->action(CloudCommand::NewFolder)->trigger();
        QCOMPARE(wanted().last(), s("createFolder ") + s(name));
    }
}

void TestPage::dropsGoWhereTheyFall_data()
{
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<int>("row"); // -1: below the rows; -2: the first step of the path
    QTest::addColumn<QString>("dragged");
    QTest::addColumn<QString>("expected");
    const QStringList rows{s("a/"), s("b/"), s("c.txt")};
    QTest::newRow("file onto folder") << rows << 1 << "file"
                                      << "uploadItems /x/f.txt -> b (0)";
    QTest::newRow("file onto document") << rows << 2 << "file"
                                        << "uploadItems /x/f.txt -> here (0)";
    QTest::newRow("file below") << rows << -1 << "file"
                                << "uploadItems /x/f.txt -> here (0)";
    QTest::newRow("file onto empty page") << QStringList() << -1 << "file"
                                          << "uploadItems /x/f.txt -> here (0)";
    QTest::newRow("file onto path") << rows << -2 << "file"
                                    << "uploadItems /x/f.txt -> root (0)";
    QTest::newRow("item onto folder") << rows << 0 << "c.txt"
                                      << "cloudItemsMoveTo c.txt -> a (0)";
    QTest::newRow("item onto path") << rows << -2 << "c.txt"
                                    << "cloudItemsMoveTo c.txt -> root (0)";
    QTest::newRow("folder onto itself") << rows << 1 << "b"
                                        << "";
    QTest::newRow("item where it is") << rows << -1 << "c.txt"
                                      << "";
    QTest::newRow("text") << rows << 1 << "text"
                          << "";
}

void TestPage::dropsGoWhereTheyFall()
{
    QFETCH(QStringList, rows);
    QFETCH(int, row);
    QFETCH(QString, dragged);
    load({s("here/")});
    click(0);
    key(Qt::Key_Return);
    QVERIFY(answer(s("here"), rows));
    std::unique_ptr<QMimeData> data = zel::clouddoc::itemsMimeData({s("here"), {dragged}}, {});
    if (dragged == s("file") || dragged == s("text"))
        data = std::make_unique<QMimeData>();
    if (dragged == s("file"))
        data->setUrls({QUrl::fromLocalFile(s("/x/f.txt")), QUrl(s("https://example.org/f.txt"))});
    if (dragged == s("text"))
        data->setText(dragged);
    QWidget *first = find<BreadcrumbBar>()->childAt(10, find<BreadcrumbBar>()->height() / 2);
    if (row == -2)
        drop(first, {5, 5}, data.get());
    else if (rows.isEmpty())
        drop(page(), {300, 300}, data.get());
    else
        drop(view()->viewport(), row < 0 ? QPoint(50, view()->height() - 10) : centre(row), data.get());
    QTEST(wanted().join(QLatin1Char('\n')), "expected");
}

// And what is undone goes back to where the drag began.
void TestPage::dragOpensFolders()
{
    load({s("a/"), s("c.txt")});
    const auto data = zel::clouddoc::itemsMimeData({s("root"), {s("c.txt")}}, {});
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(centre(0), actions, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(view()->viewport(), &enter);
    QTRY_COMPARE(m_cloud->askedFor("getInfoList").last(), s("a"));
    QVERIFY(answer(s("a"), {s("d.txt")}));
    drop(view()->viewport(), QPoint(50, view()->height() - 10), data.get());
    QCOMPARE(wanted(), QStringList(s("cloudItemsMoveTo c.txt -> a (0)")));
    zel::vela::CloudItemsMoveToResult moved;
    moved.items = {FakeCloud::item(s("c.txt"), s("a"))};
    QVERIFY(m_cloud->answer("cloudItemsMoveTo", moved));
    page()->action(CloudCommand::Undo)->trigger();
    QCOMPARE(wanted().last(), s("cloudItemsMoveTo c.txt -> root (0)"));
}

void TestPage::carriesByClipboard_data()
{
    QTest::addColumn<int>("take");
    QTest::addColumn<bool>("elsewhere");
    QTest::addColumn<QString>("expected");
    QTest::newRow("cut") << int(Qt::Key_X) << true << "cloudItemsMoveTo c.txt -> a (0)";
    QTest::newRow("cut, not reached") << int(Qt::Key_X) << true << "cloudItemsMoveTo c.txt -> a (0)";
    QTest::newRow("cut, same place") << int(Qt::Key_X) << false << "";
    QTest::newRow("copy") << int(Qt::Key_C) << true << "cloudItemsCopyTo c.txt -> a (0)";
    QTest::newRow("cut, into itself") << int(Qt::Key_X) << true << "";
    QTest::newRow("copy beside") << int(Qt::Key_C) << false << "cloudItemsCopyTo c.txt -> root (1)";
}

void TestPage::carriesByClipboard()
{
    QFETCH(int, take);
    QFETCH(bool, elsewhere);
    const bool itself = QByteArray(QTest::currentDataTag()).endsWith("itself");
    const bool isLost = QByteArray(QTest::currentDataTag()).endsWith("reached");
    load({s("a/"), s("c.txt")});
    click(itself ? 0 : 1);
    key(take, Qt::ControlModifier);
    if (elsewhere) {
        click(0);
        key(Qt::Key_Return);
        QVERIFY(answer(s("a"), {s("d.txt")}));
    }
    key(Qt::Key_V, Qt::ControlModifier);
    QTEST(wanted().join(QLatin1Char('\n')), "expected");
    QCOMPARE(!notice().isEmpty(), itself);
    wanted().clear();
    if (isLost)
        QVERIFY(m_cloud->answer("cloudItemsMoveTo", zel::vela::CloudItemsMoveToResult(), false));
    key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(wanted().isEmpty(), take == int(Qt::Key_X) && !isLost); // what was moved is off the clipboard

    auto *files = new QMimeData;
    files->setUrls({QUrl::fromLocalFile(s("/x/f.txt"))});
    QApplication::clipboard()->setMimeData(files);
    key(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(wanted().last().startsWith(s("uploadItems /x/f.txt")));
}

void TestPage::opensDocuments()
{
    make();
    auto root = FakeCloud::page(s("root"), {s("far.txt"), s("here.txt")});
    root.items[1].cache = "/drive/here.txt";
    QVERIFY(m_cloud->answer("getInfoList", root));
    doubleClick(1);
    QCOMPARE(m_opener.asked, QStringList(s("/drive/here.txt")));
    Q_EMIT m_opener.opened(s("/drive/here.txt"), KDocumentOpener::Outcome::NoProgram);
    QVERIFY(notice().contains(s("program")));

    click(0);
    view()->setFocus();
    Q_EMIT view()->activated(view()->model()->index(1, 0)); // by an assistive program
    QCOMPARE(m_opener.asked, QStringList({s("/drive/here.txt"), s("/drive/here.txt")}));
    key(Qt::Key_Return);
    key(Qt::Key_Return); // once
    QCOMPARE(wanted(), QStringList(s("downloadItems far.txt")));
    QVERIFY(m_cloud->answer("downloadItems", zel::vela::DownloadItemsResult()));
    m_cloud->tellCreated(s("refused.txt"));
    Q_EMIT view()->activated(view()->model()->index(2, 0));
    QVERIFY(
        m_cloud->refuse("downloadItems", zel::vela::DownloadItemsResult(), 5)); // says nothing of the other
    CloudTransfer other;
    other.itemId = s("other.txt");
    other.state = CloudTransfer::State::Done;
    Q_EMIT page()->logic()->transferEnded(other);
    CloudTransfer done = other;
    done.itemId = s("far.txt");
    done.localPath = s("/downloads/far.txt");
    Q_EMIT page()->logic()->transferEnded(done);
    Q_EMIT page()->logic()->transferEnded(done); // again, later, for another reason
    QCOMPARE(m_opener.asked.mid(2), QStringList(s("/downloads/far.txt")));
}

void TestPage::asksAboutTakenNames()
{
    load({s("a/"), s("c.txt")});
    page()->logic()->move({s("c.txt")}, s("a"));
    zel::vela::CloudItemsMoveToResult taken;
    taken.conflicts.resize(1);
    taken.conflicts[0].item.id = "c.txt";
    taken.conflicts[0].name = "c.txt";
    QVERIFY(m_cloud->answer("cloudItemsMoveTo", taken));
    auto *dialog = find<ConflictDialog>();
    QVERIFY(dialog && dialog->isVisible());
    QTest::mouseClick(button("Replace", dialog), Qt::LeftButton);
    QCOMPARE(wanted().last(), s("cloudItemsMoveTo c.txt -> a (2)"));
    QVERIFY(!dialog->isVisible());
}

void TestPage::movesByDialog()
{
    load({s("a/"), s("b/"), s("c.txt")});
    click(1);
    click(2, Qt::ControlModifier);
    page()->action(CloudCommand::MoveTo)->trigger();
    auto *dialog = find<MoveDialog>();
    QVERIFY(dialog && QTest::qWaitForWindowActive(dialog));
    QVERIFY(answer(s("root"), {s("a/"), s("b/"), s("c.txt")}));
    QCOMPARE(dialog->view()->model()->rowCount(), 1); // folders only, and not what is being moved
    QVERIFY(!button("Move", dialog)->isEnabled());    // they are there
    QTest::keyClick(dialog->view(), Qt::Key_Down);
    QVERIFY(button("Move", dialog)->isEnabled());
    QTest::keyClick(dialog->view(), Qt::Key_Right);
    QVERIFY(answer(s("a"), {}));
    QTest::keyClick(dialog->view(), Qt::Key_Return);
    QCOMPARE(wanted(), QStringList(s("cloudItemsMoveTo b c.txt -> a (0)")));
    QVERIFY(!dialog->isVisible());
}

void TestPage::transfersCanBeCancelled()
{
    load({s("a.txt")});
    CloudTransfer first;
    first.id = s("t1");
    first.name = s("big.iso");
    first.state = CloudTransfer::State::Running;
    CloudTransfer second = first;
    second.id = s("t2");
    page()->logic()->transfers()->put({first, second});
    Q_EMIT page()->logic()->transfersStarted({});
    click(0); // what is done in the list of transfers is not done to this
    TransferListView *list = page()->transferPanel()->view();
    QVERIFY(page()->transferPanel()->isOpen());
    QTRY_VERIFY(list->viewport()->height() > list->rowHeight());
    const QRect row = list->visualRect(list->model()->index(0, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, {row.right() - 30, row.center().y()});
    QCOMPARE(wanted().size(), 1);
    list->setFocus();
    list->setCurrentIndex(list->model()->index(1, 0));
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(wanted().size(), 2);
    wanted().sort();
    QCOMPARE(wanted(), QStringList({s("updateTransferInfo t1 step 3"), s("updateTransferInfo t2 step 3")}));
    QTest::keyClick(list, Qt::Key_Escape);
    QVERIFY(!page()->transferPanel()->isOpen());
}

// The next page begins as the last one was left.
void TestPage::headingsAndMenuSortAlike()
{
    const auto looks = [this] {
        QString texts = view()->listModel()->index(0).data().toString();
        for (const ColumnHeading *heading : page()->findChildren<ColumnHeading *>())
            texts += heading->accessibleDescription().isEmpty() ? QString() : s(" ") + heading->text();
        for (const QAction *action : find<CloudSortMenu>()->actions())
            texts += action->isChecked() ? s(" ") + action->text() : QString();
        return texts;
    };
    const QStringList items{s("a.odt"), s("b.odt")};
    load(items);
    QCOMPARE(looks(), s("a.odt Name Name A to Z"));
    QTest::mouseClick(find<ColumnHeading>(), Qt::LeftButton);
    QCOMPARE(looks(), s("b.odt Name Name Z to A"));
    load(items);
    QCOMPARE(looks(), s("b.odt Name Name Z to A"));
    find<CloudSortMenu>()->actions().at(3)->trigger();
    QCOMPARE(looks(), s("a.odt Type A to Z"));
    QCOMPARE(find<ColumnHeading>()->focusPolicy(), Qt::TabFocus); // one of them stays reachable
    find<CloudSortMenu>()->actions().at(0)->trigger();
}

QTEST_MAIN(TestPage)
#include "tst_page.moc"

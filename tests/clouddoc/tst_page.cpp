#include "clouddoc/pagefixture.h"

#include "clouddoc/ui/breadcrumbbar.h"
#include "clouddoc/ui/clouddrag.h"
#include "clouddoc/ui/cloudsortmenu.h"
#include "clouddoc/ui/crumbfit.h"
#include "clouddoc/ui/movedialog.h"
#include "clouddoc/ui/transferlistview.h"
#include "clouddoc/ui/transferpanel.h"
#include "lists/ui/columnheading.h"
#include "support/dragdrop.h"

/// The page with real keys, clicks and drops.
class TestPage : public QObject, private PageFixture
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { clear(); }
    void statesOfALoad()
    {
        make();
        QCOMPARE(state(), State::Waiting);
        QVERIFY(answer("root"_s, {}));
        QCOMPARE(state(), State::Empty);
        QVERIFY(button("New Folder", page()->states()));
        m_cloud->tellCreated("a.txt"_s);
        QCOMPARE(state(), State::List);
        page()->setFilterText("zebra"_s);
        QCOMPARE(state(), State::NothingFound);
        QTest::mouseClick(button("Show All"), Qt::LeftButton);
        QCOMPARE(state(), State::List);

        make();
        m_cloud->disconnectNow();
        QCOMPARE(state(), State::TimedOut);
        QTest::mouseClick(button("Retry"), Qt::LeftButton);
        QCOMPARE(m_cloud->askedFor("start").size(), 1);
        QCOMPARE(m_cloud->asked.last(), "getInfoList"_s);
        m_cloud->disconnectNow();
        m_cloud->connectNow(); // comes back by itself
        QVERIFY(
            m_cloud->answer("getInfoList", zel::vela::GetInfoListResult(), false)); // the one that was lost
        QVERIFY(answer("root"_s, {"a.txt"_s}));
        QCOMPARE(state(), State::List);

        make();
        QVERIFY(m_cloud->refuse("getInfoList", zel::vela::GetInfoListResult(), 5));
        QCOMPARE(state(), State::Failed);
        QTest::mouseClick(button("Retry"), Qt::LeftButton);
        QVERIFY(answer("root"_s, {"a.txt"_s}));
        QCOMPARE(state(), State::List);
    }

    void quickFoldersDoNotFlash()
    {
        load({"a/"_s, "b.txt"_s});
        view()->setCurrentIndex(view()->model()->index(0, 0));
        key(Qt::Key_Return);
        QCOMPARE(view()->model()->rowCount(), 0);
        QCOMPARE(state(), State::List);
        QVERIFY(!view()->updatesEnabled()); // the picture of the rows before stays
        QVERIFY(answer("a"_s, {"c.txt"_s}));
        QVERIFY(view()->updatesEnabled());
        key(Qt::Key_Backspace);
        QTRY_COMPARE(state(), State::Waiting); // a slow one
        QVERIFY(view()->updatesEnabled());
    }

    void crumbsFit_data()
    {
        // expected: leading, trailing, width of the last
        const auto row = zeltest::table<QVector<int>, int, QString>("widths", "available", "expected");
        const QVector<int> path{100, 50, 60, 70, 80};
        row("none", QVector<int>(), 500, "0 0 0");
        row("all", path, 400, "0 5 80");
        row("one short", path, 399, "1 3 80");
        row("root and last", path, 230, "1 1 80");
        row("last alone", path, 219, "0 2 80");
        row("last shortened", path, 80, "0 1 50");
        row("no room at all", path, 0, "0 1 40");
        row("only the root, too long", QVector<int>{300}, 200, "0 1 200");
        row("two, too long", QVector<int>{100, 300}, 200, "0 1 170");
    }
    void crumbsFit()
    {
        const auto [widths, available] = zeltest::row<QVector<int>, int>();
        const CrumbFit fit = CrumbFit::of(widths, available, {10, 20, 40});
        QTEST("%1 %2 %3"_s.arg(fit.leading).arg(fit.trailing).arg(fit.lastWidth), "expected");
    }

    void goesThroughFolders()
    {
        load({"a/"_s, "b/"_s, "c.txt"_s});
        doubleClick(1);
        QVERIFY(answer("b"_s, {"d.txt"_s}));
        QCOMPARE(crumbs(), "Cloud documents/b"_s);
        QVERIFY(view()->hasFocus());

        key(Qt::Key_Up, Qt::AltModifier);
        QVERIFY(answer("root"_s, {"a/"_s, "b/"_s, "c.txt"_s}));
        QCOMPARE(view()->selectedIds(), QStringList("b"_s)); // where one came from
        key(Qt::Key_Left, Qt::AltModifier);
        QVERIFY(answer("b"_s, {"d.txt"_s}));
        QTest::mouseClick(view()->viewport(), Qt::ForwardButton, {}, centre(0));
        QVERIFY(answer("root"_s, {"a/"_s, "b/"_s}));
        QTest::mouseClick(view()->viewport(), Qt::BackButton, {}, {20, 300});
        QVERIFY(answer("b"_s, {"d.txt"_s}));
        const auto steps = find<BreadcrumbBar>()->findChildren<QAbstractButton *>();
        for (QAbstractButton *step : steps) {
            if (step->text() == "Cloud documents"_s && step->isVisible())
                QTest::mouseClick(step, Qt::LeftButton);
        }
        QVERIFY(answer("root"_s, {"a/"_s, "b/"_s}));
        QCOMPARE(crumbs(), "Cloud documents"_s);
    }

    void comesBackToLaterPages()
    {
        load({"a/"_s, "z/"_s});
        click(1);
        key(Qt::Key_Return);
        QVERIFY(answer("z"_s, {}));
        page()->logic()->up();
        QVERIFY(m_cloud->answer("getInfoList", FakeCloud::page("root"_s, {"a/"_s}, true)));
        QVERIFY(answer("root"_s, {"z/"_s}));
        QCOMPARE(view()->selectedIds(), QStringList("z"_s));
    }

    void dropsGoWhereTheyFall_data()
    {
        // row: -1: below the rows; -2: the first step of the path
        const auto row =
            zeltest::table<QStringList, int, QString, QString>("rows", "row", "dragged", "expected");
        const QStringList rows{"a/"_s, "b/"_s, "c.txt"_s};
        row("file onto folder", rows, 1, "file", "uploadItems /x/f.txt -> b (0)");
        row("file onto document", rows, 2, "file", "uploadItems /x/f.txt -> here (0)");
        row("file below", rows, -1, "file", "uploadItems /x/f.txt -> here (0)");
        row("file onto empty page", {}, -1, "file", "uploadItems /x/f.txt -> here (0)");
        row("file onto path", rows, -2, "file", "uploadItems /x/f.txt -> root (0)");
        row("item onto folder", rows, 0, "c.txt", "cloudItemsMoveTo c.txt -> a (0)");
        row("item onto path", rows, -2, "c.txt", "cloudItemsMoveTo c.txt -> root (0)");
        row("folder onto itself", rows, 1, "b", "");
        row("item where it is", rows, -1, "c.txt", "");
        row("text", rows, 1, "text", "");
    }
    void dropsGoWhereTheyFall()
    {
        const auto [rows, row, dragged] = zeltest::row<QStringList, int, QString>();
        load({"here/"_s});
        click(0);
        key(Qt::Key_Return);
        QVERIFY(answer("here"_s, rows));
        std::unique_ptr<QMimeData> data = zel::clouddoc::itemsMimeData({"here"_s, {dragged}}, {});
        if (dragged == "file"_s || dragged == "text"_s)
            data = std::make_unique<QMimeData>();
        if (dragged == "file"_s)
            data->setUrls({QUrl::fromLocalFile("/x/f.txt"_s), QUrl("https://example.org/f.txt"_s)});
        if (dragged == "text"_s)
            data->setText(dragged);
        QWidget *first = find<BreadcrumbBar>()->childAt(10, find<BreadcrumbBar>()->height() / 2);
        if (row == -2)
            zeltest::drop(first, {5, 5}, data.get());
        else if (rows.isEmpty())
            zeltest::drop(page(), {300, 300}, data.get());
        else
            zeltest::drop(
                view()->viewport(), row < 0 ? QPoint(50, view()->height() - 10) : centre(row), data.get());
        QTEST(wanted().join(QLatin1Char('\n')), "expected");
    }

    // And what is undone goes back to where the drag began.
    void dragOpensFolders()
    {
        load({"a/"_s, "c.txt"_s});
        const auto data = zel::clouddoc::itemsMimeData({"root"_s, {"c.txt"_s}}, {});
        const Qt::DropActions actions = view()->cargo()->dragActions();
        QVERIFY(!actions.testFlag(Qt::MoveAction)); // file managers would take it
        QDragEnterEvent enter(centre(0), actions, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(view()->viewport(), &enter);
        QTRY_COMPARE(m_cloud->askedFor("getInfoList").last(), "a"_s);
        QVERIFY(answer("a"_s, {"e/"_s})); // comes under the pointer, and is not meant
        QDropEvent fall(centre(0), actions, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(view()->viewport(), &fall);
        QCOMPARE(wanted(), QStringList("cloudItemsMoveTo c.txt -> a (0)"_s));
        zel::vela::CloudItemsMoveToResult moved;
        moved.items = {FakeCloud::item("c.txt"_s, "a"_s)};
        QVERIFY(m_cloud->answer("cloudItemsMoveTo", moved));
        page()->action(CloudCommand::Undo)->trigger();
        QCOMPARE(wanted().last(), "cloudItemsMoveTo c.txt -> root (0)"_s);
    }

    void carriesByClipboard_data()
    {
        const auto row = zeltest::table<int, bool, QString>("take", "elsewhere", "expected");
        row("cut", int(Qt::Key_X), true, "cloudItemsMoveTo c.txt -> a (0)");
        row("cut, not reached", int(Qt::Key_X), true, "cloudItemsMoveTo c.txt -> a (0)");
        row("cut, same place", int(Qt::Key_X), false, "");
        row("copy", int(Qt::Key_C), true, "cloudItemsCopyTo c.txt -> a (0)");
        row("cut, into itself", int(Qt::Key_X), true, "");
        row("copy beside", int(Qt::Key_C), false, "cloudItemsCopyTo c.txt -> root (1)");
    }
    void carriesByClipboard()
    {
        const auto [take, elsewhere] = zeltest::row<int, bool>();
        const bool itself = QByteArray(QTest::currentDataTag()).endsWith("itself");
        const bool isLost = QByteArray(QTest::currentDataTag()).endsWith("reached");
        load({"a/"_s, "c.txt"_s});
        click(itself ? 0 : 1);
        key(take, Qt::ControlModifier);
        if (elsewhere) {
            click(0);
            key(Qt::Key_Return);
            QVERIFY(answer("a"_s, {"d.txt"_s}));
        }
        key(Qt::Key_V, Qt::ControlModifier);
        QTEST(wanted().join(QLatin1Char('\n')), "expected");
        QCOMPARE(!notice().isEmpty(), itself);
        wanted().clear();
        if (isLost)
            QVERIFY(m_cloud->answer("cloudItemsMoveTo", zel::vela::CloudItemsMoveToResult(), false));
        key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(
            wanted().isEmpty(), take == int(Qt::Key_X) && !isLost); // what was moved is off the clipboard

        auto *files = new QMimeData;
        files->setUrls({QUrl::fromLocalFile("/x/f.txt"_s)});
        QApplication::clipboard()->setMimeData(files);
        key(Qt::Key_V, Qt::ControlModifier);
        QVERIFY(wanted().last().startsWith("uploadItems /x/f.txt"_s));
    }

    void opensDocuments()
    {
        make();
        auto root = FakeCloud::page("root"_s, {"far.txt"_s, "here.txt"_s});
        root.items[1].cache = "/drive/here.txt";
        QVERIFY(m_cloud->answer("getInfoList", root));
        doubleClick(1);
        QCOMPARE(m_opener.asked, QStringList("/drive/here.txt"_s));
        Q_EMIT m_opener.opened("/drive/here.txt"_s, KDocumentOpener::Outcome::NoProgram);
        QVERIFY(notice().contains("program"_s));

        click(0);
        view()->setFocus();
        Q_EMIT view()->activated(view()->model()->index(1, 0)); // by an assistive program
        QCOMPARE(m_opener.asked, QStringList({"/drive/here.txt"_s, "/drive/here.txt"_s}));
        key(Qt::Key_Return);
        key(Qt::Key_Return); // once
        QCOMPARE(wanted(), QStringList("downloadItems far.txt"_s));
        QVERIFY(m_cloud->answer("downloadItems", zel::vela::DownloadItemsResult()));
        m_cloud->tellCreated("refused.txt"_s);
        Q_EMIT view()->activated(view()->model()->index(2, 0));
        // Says nothing of the other.
        QVERIFY(m_cloud->refuse("downloadItems", zel::vela::DownloadItemsResult(), 5));
        CloudTransfer other;
        other.itemId = "other.txt"_s;
        other.state = CloudTransfer::State::Done;
        Q_EMIT page()->logic()->transferEnded(other);
        CloudTransfer done = other;
        done.itemId = "far.txt"_s;
        done.localPath = "/downloads/far.txt"_s;
        Q_EMIT page()->logic()->transferEnded(done);
        Q_EMIT page()->logic()->transferEnded(done); // again, later, for another reason
        QCOMPARE(m_opener.asked.mid(2), QStringList("/downloads/far.txt"_s));
    }

    void movesByDialog()
    {
        load({"a/"_s, "b/"_s, "c.txt"_s});
        click(1);
        click(2, Qt::ControlModifier);
        page()->action(CloudCommand::MoveTo)->trigger();
        auto *dialog = find<MoveDialog>();
        QVERIFY(dialog && QTest::qWaitForWindowActive(dialog));
        QVERIFY(answer("root"_s, {"a/"_s, "b/"_s, "c.txt"_s}));
        QCOMPARE(dialog->view()->model()->rowCount(), 1); // folders only, and not what is being moved
        QVERIFY(!button("Move", dialog)->isEnabled());    // they are there
        QTest::keyClick(dialog->view(), Qt::Key_Down);
        QVERIFY(button("Move", dialog)->isEnabled());
        QTest::keyClick(dialog->view(), Qt::Key_Right);
        QVERIFY(answer("a"_s, {}));
        QTest::keyClick(dialog->view(), Qt::Key_Return);
        QCOMPARE(wanted(), QStringList("cloudItemsMoveTo b c.txt -> a (0)"_s));
        QVERIFY(!dialog->isVisible());
    }

    void transfersCanBeCancelled()
    {
        load({"a.txt"_s});
        CloudTransfer first;
        first.id = "t1"_s;
        first.name = "big.iso"_s;
        first.state = CloudTransfer::State::Running;
        CloudTransfer second = first;
        second.id = "t2"_s;
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
        QCOMPARE(wanted(), QStringList({"updateTransferInfo t1 step 3"_s, "updateTransferInfo t2 step 3"_s}));
        QTest::keyClick(list, Qt::Key_Escape);
        QVERIFY(!page()->transferPanel()->isOpen());
    }

    // The next page begins as the last one was left.
    void headingsAndMenuSortAlike()
    {
        const auto looks = [this] {
            QString texts = view()->listModel()->index(0).data().toString();
            for (const ColumnHeading *heading : page()->findChildren<ColumnHeading *>())
                texts += heading->accessibleDescription().isEmpty() ? QString() : " "_s + heading->text();
            for (const QAction *action : find<CloudSortMenu>()->actions())
                texts += action->isChecked() ? " "_s + action->text() : QString();
            return texts;
        };
        const QStringList items{"a.odt"_s, "b.odt"_s};
        load(items);
        QCOMPARE(looks(), "a.odt Name Name A to Z"_s);
        QTest::mouseClick(find<ColumnHeading>(), Qt::LeftButton);
        QCOMPARE(looks(), "b.odt Name Name Z to A"_s);
        load(items);
        QCOMPARE(looks(), "b.odt Name Name Z to A"_s);
        find<CloudSortMenu>()->actions().at(3)->trigger();
        QCOMPARE(looks(), "a.odt Type A to Z"_s);
        QCOMPARE(find<ColumnHeading>()->focusPolicy(), Qt::TabFocus); // one of them stays reachable
        find<CloudSortMenu>()->actions().at(0)->trigger();
    }

private:
    QString crumbs() const
    {
        QStringList names;
        for (const BreadcrumbBar::Crumb &crumb : find<BreadcrumbBar>()->crumbs())
            names << crumb.name;
        return names.join(QLatin1Char('/'));
    }
};

QTEST_MAIN(TestPage)
#include "tst_page.moc"

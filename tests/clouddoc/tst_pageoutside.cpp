#include "clouddoc/pagefixture.h"

#include "clouddoc/ui/movedialog.h"

/// Files of another program, which takes its time for each answer.
class ForeignFiles : public QMimeData
{
    Q_OBJECT
public:
    mutable int answers = 0;

protected:
    QStringList formats() const override { return {"text/uri-list"_s}; }
    QVariant retrieveData(const QString &, QVariant::Type) const override
    {
        ++answers;
        return QByteArray("file:///x/f.txt\r\n");
    }
};

/// What others do while the user is at the page: the service, other programs, the box itself.
class TestPageOutside : public QObject, private PageFixture
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { clear(); }
    void filterLeavesTheFocusAlone()
    {
        QWidget window;
        const auto before = qScopeGuard([this] { clear(); }); // the window would take the page along
        load({"a.txt"_s});
        QLineEdit search(&window);
        page()->setParent(&window);
        page()->show();
        search.show();
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        view()->setFocus();
        search.setFocus();
        page()->setFilterText("zebra"_s);
        QCOMPARE(state(), State::NothingFound);
        QVERIFY(search.hasFocus());
    }

    void staleRowsSaySo()
    {
        load({"a.txt"_s});
        m_cloud->disconnectNow();
        QCOMPARE(state(), State::List); // what was there stays
        QTest::mouseClick(button("Retry"), Qt::LeftButton);
        QVERIFY(m_cloud->asked.contains("start"_s));
        QVERIFY(m_cloud->answer("getInfoList", zel::vela::GetInfoListResult(), false));
        QVERIFY(notice().contains("out of date"_s));
        QVERIFY(!page()->action(CloudCommand::Trash)->isEnabled());
        m_cloud->connectNow();
        QVERIFY(answer("root"_s, {"a.txt"_s}));
        QVERIFY(notice().isEmpty());
    }

    void dragsAreReadOnce()
    {
        load({"a/"_s, "b.txt"_s});
        ForeignFiles data;
        QDragEnterEvent enter(centre(0), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view()->viewport(), &enter);
        const int before = data.answers;
        for (int row = 0; row < 2; ++row) {
            QDragMoveEvent move(centre(row), Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(view()->viewport(), &move);
            QVERIFY(move.isAccepted());
        }
        QCOMPARE(data.answers, before);
    }

    // As when the language changes: to the user it is the same page.
    void goesOnInAnotherWindow()
    {
        load({"a/"_s});
        click(0);
        key(Qt::Key_Return);
        QVERIFY(answer("a"_s, {"c.txt"_s, "d.txt"_s, "e.txt"_s}));
        page()->logic()->trash({"e.txt"_s});
        page()->logic()->rename("c.txt"_s, "n.txt"_s);
        auto renamed = filled(&zel::vela::RenameResult::item, FakeCloud::item("c.txt"_s, "a"_s));
        renamed.item.name = "n.txt";
        QVERIFY(m_cloud->answer("rename", renamed));
        click(0);
        view()->beginRename(view()->currentIndex());
        key(Qt::Key_End);
        QTest::keyClicks(QApplication::focusWidget(), "half"_s);
        const QStringList asked = m_cloud->asked;

        m_page.reset(new ZelBoxCloudDocWidget(m_cloud.get(), nullptr, page()->handOver()));
        page()->show();
        QVERIFY(QTest::qWaitForWindowActive(page()));
        QCOMPARE(m_cloud->asked, asked);
        QCOMPARE(state(), State::List);
        QCOMPARE(view()->selectedIds(), QStringList("d.txt"_s));
        QTRY_VERIFY(view()->isRenaming());
        auto *edit = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(edit);
        QCOMPARE(edit->text(), "d.txthalf"_s);
        QTest::keyClick(edit, Qt::Key_Escape);
        QVERIFY(page()->action(CloudCommand::Undo)->isEnabled() && notice().contains("n.txt"_s));
        QVERIFY(page()->logic()->isBusy());
        QVERIFY(m_cloud->answer("batchRemove",
            filled(&zel::vela::BatchRemoveResult::removedIds, std::vector<std::string>{"e.txt"})));
        QCOMPARE(view()->model()->rowCount(), 2);
        QVERIFY(!page()->logic()->isBusy());
        page()->logic()->back();
        QVERIFY(answer("root"_s, {"a/"_s}));
        QCOMPARE(view()->selectedIds(), QStringList("a"_s));
    }

    void goesWithAllOpen_data()
    {
        const auto row = zeltest::table<int>("keys");
        row("editor", int(Qt::Key_F2));
        row("menu", int(Qt::Key_Menu));
        row("dialog to move", int(Qt::CTRL) + int(Qt::SHIFT) + int(Qt::Key_M));
        row("dialog of files", int(Qt::CTRL) + int(Qt::Key_D));
        row("removal on its way", int(Qt::Key_Delete));
    }
    // The windows are made anew when the language changes, whatever the user is about.
    void goesWithAllOpen()
    {
        QFETCH(int, keys);
        load({"a/"_s, "b.txt"_s, "c.txt"_s});
        click(1);
        CloudTransfer running;
        running.state = CloudTransfer::State::Running;
        page()->logic()->transfers()->put({running});
        Q_EMIT page()->logic()->transfersStarted({}); // the panel slides
        const auto modifiers = Qt::KeyboardModifiers(keys & int(Qt::KeyboardModifierMask));
        if (keys == int(Qt::Key_Menu))
            Q_EMIT view()->customContextMenuRequested(centre(1));
        else
            key(keys & ~int(Qt::KeyboardModifierMask), modifiers);
        answer("root"_s, {"a/"_s}); // of the dialog that reads folders itself
        if (auto *dialog = find<MoveDialog>())
            QTest::keyClick(dialog->view(), Qt::Key_Down);
        const QPointer<QWidget> popup = QApplication::activePopupWidget();
        clear();
        QVERIFY(!popup);
        QTest::qWait(0); // what was put off
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(TestPageOutside)
#include "tst_pageoutside.moc"

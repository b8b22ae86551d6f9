#include "clouddoc/pagefixture.h"

#include "clouddoc/ui/conflictdialog.h"

/// What changes documents, what the page says of it, and how it is taken back.
class TestPageEdits : public QObject, private PageFixture
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { clear(); }
    void renames()
    {
        load({"report.final.txt"_s, "taken.txt"_s});
        click(0);
        key(Qt::Key_F2);
        auto *edit = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(edit);
        QCOMPARE(edit->selectedText(), "report.final"_s);
        QTest::keyClicks(edit, "taken"_s);
        key(Qt::Key_Return);
        QVERIFY(edit->isVisible()); // the name is taken
        QVERIFY(wanted().isEmpty());
        QTest::keyClick(edit, Qt::Key_Delete); // does not reach the document
        edit->setText("  new.txt "_s);
        key(Qt::Key_Return);
        QTRY_COMPARE(wanted(), QStringList("rename report.final.txt -> new.txt"_s));
        QVERIFY(m_cloud->refuse("rename", zel::vela::RenameResult(), 5));
        QVERIFY2(notice().contains("permission"_s), qPrintable(notice()));
        QVERIFY(view()->hasFocus());

        key(Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "x"_s);
        key(Qt::Key_Escape);
        QCOMPARE(wanted().size(), 1);

        key(Qt::Key_F2); // somebody else renames it meanwhile; what was not typed does not undo that
        auto theirs = FakeCloud::item("report.final.txt"_s);
        theirs.name = "theirs.txt";
        m_cloud->tellProperty(theirs, "name");
        view()->setFocus();
        QTRY_VERIFY(!view()->isRenaming());
        QCOMPARE(wanted().size(), 1);
    }

    // What others do meanwhile neither takes what is typed for a name nor the keyboard.
    void renameStandsAlone_data()
    {
        zeltest::names("meanwhile", {"row goes", "folder goes", "folder was made", "undone"});
    }
    void renameStandsAlone()
    {
        QFETCH(QString, meanwhile);
        load({"a/"_s, "b.txt"_s, "c.txt"_s});
        click(0);
        key(Qt::Key_Return);
        QVERIFY(answer("a"_s, {"b.txt"_s, "c.txt"_s}));
        page()->action(CloudCommand::NewFolder)->trigger();
        wanted().clear();
        click(1);
        key(Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "half"_s);
        m_cloud->tellRemoved(meanwhile == "row goes"_s ? "c.txt"_s
                : meanwhile == "folder goes"_s         ? "a"_s
                                                       : ""_s,
            "a"_s);
        m_cloud->answer("getItemInfoListV5", zel::vela::GetItemInfoListV5Result()); // there is no folder
        if (meanwhile == "undone"_s)
            Q_EMIT page()->logic()->restored({}, {"b.txt"_s});
        if (meanwhile == "folder was made"_s)
            QVERIFY(m_cloud->answer("createFolder",
                filled(&zel::vela::CreateFolderResult::item, FakeCloud::item("New Folder/"_s, "a"_s))));
        QCOMPARE(view()->isRenaming(), !meanwhile.endsWith("goes"_s));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QWidget *typed = QApplication::focusWidget();
        QVERIFY(typed == view() || view()->isAncestorOf(typed));
        QCOMPARE(wanted().join(QLatin1Char(' ')), QString());
    }

    void newNameStaysUntilItsAnswer()
    {
        load({"a.txt"_s, "b.txt"_s});
        click(0);
        key(Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "new"_s);
        key(Qt::Key_Return);
        QTRY_COMPARE(m_cloud->waiting("rename"), 1);
        const auto picture = [this] {
            return view()->grab(view()->visualRect(view()->currentIndex())).toImage();
        };
        const QImage before = picture();
        Q_EMIT page()->logic()->operationDone(CloudOperation::Transfer);
        QCOMPARE(picture(), before);
        QVERIFY(m_cloud->refuse("rename", zel::vela::RenameResult(), 5));
        QVERIFY(picture() != before);
    }

    void tellsWhatCopiesLack()
    {
        load({"a/"_s});
        click(0);
        key(Qt::Key_C, Qt::ControlModifier);
        key(Qt::Key_V, Qt::ControlModifier);
        zel::vela::CloudItemsCopyToResult copied;
        copied.extraParam["leftOut"] = "3";
        QVERIFY(m_cloud->answer("cloudItemsCopyTo", copied));
        QVERIFY2(notice().startsWith(QLatin1Char('3')), qPrintable(notice()));
    }

    void newFolderIsNamedAtOnce()
    {
        load({"New Folder/"_s});
        page()->action(CloudCommand::NewFolder)->trigger();
        QCOMPARE(wanted(), QStringList("createFolder New Folder (2)"_s));
        zel::vela::CreateFolderResult made;
        made.item = FakeCloud::item("New Folder (2)/"_s);
        QVERIFY(m_cloud->answer("createFolder", made));
        auto *edit = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(edit);
        QCOMPARE(edit->selectedText(), "New Folder (2)"_s);
        QTest::keyClicks(edit, "Mine"_s);
        QTest::keyPress(edit, Qt::Key_Return);
        auto named = filled(&zel::vela::RenameResult::item, made.item);
        named.item.name = "Mine";
        QTRY_COMPARE(m_cloud->waiting("rename"), 1);
        QVERIFY(m_cloud->answer("rename", named));
        QVERIFY2(notice().contains("created"_s), qPrintable(notice())); // and not renamed
        page()->action(CloudCommand::Undo)->trigger();
        QCOMPARE(wanted().last(), "batchRemove New Folder (2)"_s);
        for (const char *name : {"New Folder (2)", "New Folder (3)"}) {
            page()->action(CloudCommand::NewFolder)->trigger();
            QCOMPARE(wanted().last(), "createFolder "_s + QLatin1String(name));
        }
    }

    void removesAndOffersUndo()
    {
        load({"a.txt"_s, "b.txt"_s, "c.txt"_s, "d.txt"_s});
        click(1);
        click(2, Qt::ShiftModifier);
        key(Qt::Key_Delete);
        key(Qt::Key_Delete); // again before it is answered
        QCOMPARE(wanted(), QStringList("batchRemove b.txt c.txt"_s));
        zel::vela::BatchRemoveResult removed;
        removed.removedIds = {"b.txt", "c.txt"};
        removed.extraParam = {{"b.txt", "bin1"}, {"c.txt", "bin2"}};
        QVERIFY(m_cloud->answer("batchRemove", removed));
        QCOMPARE(view()->model()->rowCount(), 2);
        QCOMPARE(view()->currentId(), "d.txt"_s);
        QVERIFY(notice().startsWith(QLatin1Char('2')));
        QTest::mouseClick(button("Undo"), Qt::LeftButton);
        QCOMPARE(m_cloud->waiting("recoverRecycles"), 1);

        QCOMPARE(view()->selectedIds(), QStringList("d.txt"_s)); // who removes goes on with the next one
        key(Qt::Key_A, Qt::ControlModifier);
        key(Qt::Key_Delete);
        removed.removedIds = {"a.txt"};
        removed.extraParam = {{"a.txt", "bin3"}};
        removed.failedItems["d.txt"].errResult = "denied";
        QVERIFY(m_cloud->answer("batchRemove", removed));
        QVERIFY2(notice().contains("permission"_s), qPrintable(notice()));
        QTest::mouseClick(button("Undo"), Qt::LeftButton); // what was removed can be had back all the same
        QCOMPARE(m_cloud->askedFor("recoverRecycles"), QStringList({"bin1 bin2"_s, "bin3"_s}));
        m_cloud->tellCreated("e.txt"_s);
        click(0);
        m_cloud->tellRemoved("d.txt"_s); // which the user could not remove: nothing follows it
        QCOMPARE(view()->selectedIds(), QStringList());
    }

    void undoUntilTheNextAction()
    {
        load({"a.txt"_s, "b/"_s});
        QAction *undo = page()->action(CloudCommand::Undo);
        QVERIFY(!undo->isEnabled());
        page()->logic()->rename("a.txt"_s, "n.txt"_s);
        auto renamed = filled(&zel::vela::RenameResult::item, FakeCloud::item("a.txt"_s));
        renamed.item.name = "n.txt";
        QVERIFY(m_cloud->answer("rename", renamed));
        QVERIFY2(notice().contains("n.txt"_s), qPrintable(notice()));
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(wanted().last(), "rename a.txt -> a.txt"_s);
        QVERIFY(!undo->isEnabled() && notice().isEmpty());
        renamed.item.name = "a.txt";
        QVERIFY(m_cloud->answer("rename", renamed));
        QVERIFY2(notice().endsWith(" again."_s), qPrintable(notice()));

        page()->logic()->move({"a.txt"_s}, "b"_s);
        zel::vela::CloudItemsMoveToResult moved;
        moved.items = {FakeCloud::item("a.txt"_s, "b"_s)};
        QVERIFY(m_cloud->answer("cloudItemsMoveTo", moved));
        QVERIFY2(notice().contains("a.txt"_s) && notice().contains("“b”"_s), qPrintable(notice()));
        page()->logic()->openFolder("b"_s); // where nothing would be seen of it
        QVERIFY(!undo->isEnabled() && notice().isEmpty());
    }

    void uploadsAreSelected_data()
    {
        const auto row = zeltest::table<QString, QString>("meanwhile", "selected");
        row("waited", "", "c.txt");
        row("picked another", "pick", "b.txt");
        row("filtered", "filter", "a.txt");
    }
    void uploadsAreSelected()
    {
        QFETCH(QString, meanwhile);
        QStringList names{"a.txt"_s, "b.txt"_s};
        for (int i = 0; i < 40; ++i)
            names << "b%1.txt"_s.arg(i);
        load(names);
        click(0);
        CloudTransfer upload;
        upload.id = "t"_s;
        upload.folderId = page()->logic()->folderId();
        Q_EMIT page()->logic()->transfersStarted({upload});
        if (meanwhile == "pick"_s)
            click(1);
        if (meanwhile == "filter"_s)
            page()->setFilterText("txt"_s);
        upload.state = CloudTransfer::State::Done;
        upload.itemId = "c.txt"_s;
        Q_EMIT page()->logic()->transferEnded(upload);
        Q_EMIT m_cloud->velaEventObject()->signal_notifyFileCreation(
            filled(&zel::vela::NotifyFileCreationArg::item, FakeCloud::item("c.txt"_s, upload.folderId)));
        QTEST(view()->selectedIds().join(QLatin1Char(' ')), "selected");
        QVERIFY(view()->viewport()->rect().contains(view()->visualRect(view()->currentIndex())));
    }

    void asksAboutTakenNames()
    {
        load({"a/"_s, "c.txt"_s});
        page()->logic()->move({"c.txt"_s}, "a"_s);
        zel::vela::CloudItemsMoveToResult taken;
        taken.conflicts.resize(1);
        taken.conflicts[0].item.id = "c.txt";
        taken.conflicts[0].name = "c.txt";
        QVERIFY(m_cloud->answer("cloudItemsMoveTo", taken));
        auto *dialog = find<ConflictDialog>();
        QVERIFY(dialog && dialog->isVisible());
        QTest::mouseClick(button("Replace", dialog), Qt::LeftButton);
        QCOMPARE(wanted().last(), "cloudItemsMoveTo c.txt -> a (2)"_s);
        QVERIFY(!dialog->isVisible());
    }
};

QTEST_MAIN(TestPageEdits)
#include "tst_pageedits.moc"

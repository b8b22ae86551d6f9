// Paints the Recent page in its states, for people to look at (support/picturerun.h).
#include "recentfile/pagefixture.h"
#include "support/picturerun.h"

#include "recentfile/ui/loadingouttime.h"
#include "recentfile/ui/recentdialogs.h"
#include "recentfile/ui/recentfilemenu.h"
#include "recentfile/ui/recentfiletitlewidget.h"
#include "recentfile/ui/recentguides.h"
#include "recentfile/ui/recentsortmenu.h"
#include "recentfile/ui/sharedialog.h"

using namespace recenttest;

class Scenes : private PageFixture
{
public:
    explicit Scenes(const PictureRun &run) : m_run(run) { }

    void lists()
    {
        show(5);
        save("few");
        show(5000);
        view()->setFocus();
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, centreOf(1));
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::ControlModifier, centreOf(2));
        QTest::mouseMove(view()->viewport(), centreOf(3));
        save("many");
        QTest::keyClick(view(), Qt::Key_Down);
        view()->verticalScrollBar()->setValue(690);
        notice()->showText("“Letter to the editor.doc” is no longer there."_s);
        save("scrolled");
        page()->findChildren<NoticeBar *>().constLast()->showAction(
            "3 files are in the recycle bin."_s, "Undo"_s);
        save("undo");
        page()->resize(440, 400);
        save("narrow");
        page()->resize(680, 540);
        page()->setFilterText("report"_s);
        save("found");
        page()->setFilterText("no such name"_s);
        save("nothing");
    }

    void popups()
    {
        show(5);
        view()->setCurrentIndex(row(3));
        page()->onMoreBtnCustomContextMenuRequested({10, 10});
        m_run.save("menu", page()->openMenu());
        page()->openMenu()->close();
        auto *sorts = page()->findChild<RecentSortMenu *>();
        sorts->popup({10, 10});
        m_run.save("sortmenu", sorts);
        sorts->close();
        page()->onMenuRemoveRecordAction(row(2));
        saveDialog<RemoveRecordDialog>("removedialog");
        page()->onMenuRemoveFileAction(row(2));
        saveDialog<DeleteFileDialog>("deletedialog");
        page()->onShareDoc(row(2), true);
        saveDialog<ShareDialog>("sharedialog");
        page()->findChild<ZelBoxRecentFileTitleWidget *>()->onRoamingGuideLinkClicked();
        saveDialog<ZelBoxRecentFileGuideDialog>("guidedialog");
    }

    void emptyPages()
    {
        using Guide = ZelBoxRecentFileEmptyGuideWidget;
        show(0);
        save("empty");
        page()->findChild<Guide *>()->setReason(Guide::Reason::NotLoggedIn);
        save("empty-loggedout");
        page()->findChild<ZelBoxRecentFileRoamingGuideWidget *>()->setNeeded(true);
        page()->findChild<Guide *>()->setReason(Guide::Reason::RoamingOff);
        save("empty-roamingoff");
        show(3, false);
        QTest::qWait(800);
        save("loading");
        Q_EMIT page()->findChild<LoadingOuttime *>()->sigTimeout();
        save("outtime");
    }

private:
    void show(int rows, bool ready = true)
    {
        clear();
        make(records(rows), ready);
        page()->resize(680, 540);
        page()->onWindowFirstShown();
    }

    static RecordInfoList records(int count)
    {
        const char *heating = "Downloads/A very long name that somebody gave to the minutes of the meeting "
                              "of the working group on the renewal of the heating system in the north wing, "
                              "second revised version (final) (2).docx";
        auto list = recordsAtHome(
            {"Documents/Budget 2024.xlsx", "Documents/Reports/Quarterly report.odt", heating,
                "文档/二零二四年第一季度财务报告及市场分析总结.pptx", "Pictures/Holiday/DSC_0042.jpg",
                "ドキュメント/議事録.pdf", "/mnt/share/projects/heating/plans/north-wing/floor-2/drawing.svg",
                "archive.tar.gz", "Documents/Letter to the editor.doc", "notes", "Музыка/Концерт.flac",
                "src/parser.cpp"},
            count, [](qint64 i) { return i * i * 150 + i * 1200; });
        for (int i = 0; i < count; ++i) {
            list[i].size = 1234LL << (i % 20);
            if (i % 9 == 4)
                list[i].presence = RecentFileInfo::Presence::Missing;
        }
        if (count > 3) {
            list[2].unread = 0;
            RecentFileInfo &cloud = list[3];
            cloud.unread = 1;
            cloud.path.clear();
            cloud.cloudName = cloud.displayText = "二零二四年第一季度财务报告.pptx"_s;
            cloud.deviceName = "Tablet"_s;
            cloud.roamingId = "r3"_s;
            cloud.roaming = cloud.cloudBacked = true;
            cloud.cloudFileId = 3;
        }
        if (count > 8)
            list[8].pinned = true;
        return list;
    }

    void save(const char *name) { m_run.save(name, page()); }
    template <class Dialog> void saveDialog(const char *name)
    {
        auto *dialog = page()->findChild<Dialog *>();
        m_run.save(name, dialog);
        dialog->reject();
    }

    const PictureRun &m_run;
};

int main(int argc, char **argv)
{
    const PictureRun run(argc, argv);
    Scenes scenes(run);
    scenes.lists();
    scenes.popups();
    scenes.emptyPages();
    return 0;
}

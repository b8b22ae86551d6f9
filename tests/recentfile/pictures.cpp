// Paints the Recent page in its states, for people to look at (support/picturerun.h).
#include "recentfile/fakes.h"
#include "support/fakecloud.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/ui/loadingouttime.h"
#include "recentfile/ui/recentdialogs.h"
#include "recentfile/ui/recentfile.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfilemenu.h"
#include "recentfile/ui/recentfiletitlewidget.h"
#include "recentfile/ui/recentfilewidget.h"
#include "recentfile/ui/recentguides.h"
#include "recentfile/ui/recentsortmenu.h"
#include "recentfile/ui/sharedialog.h"
#include "support/picturerun.h"
#include "widgets/noticebar.h"

#include <QApplication>
#include <QDir>
#include <QScrollBar>
#include <QTest>

using namespace recenttest;

namespace {

QString home(const char *utf8)
{
    return QDir::homePath() + QLatin1Char('/') + QString::fromUtf8(utf8);
}

RecordInfoList records(int count, const QDateTime &now)
{
    const QStringList paths{home("Documents/Budget 2024.xlsx"),
        home("Documents/Reports/Quarterly report.odt"),
        home("Downloads/A very long name that somebody gave to the minutes of the meeting of the working "
             "group on the "
             "renewal of the heating system in the north wing, second revised version (final) (2).docx"),
        home("文档/二零二四年第一季度财务报告及市场分析总结.pptx"), home("Pictures/Holiday/DSC_0042.jpg"),
        home("ドキュメント/議事録.pdf"), "/mnt/share/projects/heating/plans/north-wing/floor-2/drawing.svg"_s,
        home("archive.tar.gz"), home("Documents/Letter to the editor.doc"), home("notes"),
        home("Музыка/Концерт.flac"), home("src/parser.cpp")};
    RecordInfoList list;
    for (int i = 0; i < count; ++i) {
        RecentFileInfo info = record(QString::number(i), now.addSecs(-i * i * 150LL - i * 1200LL - 180));
        info.path = paths.at(i % paths.size());
        info.size = 1234LL << (i % 20);
        if (i % 9 == 4)
            info.presence = RecentFileInfo::Presence::Missing;
        if (i == 2 || i == 3)
            info.unread = i - 2;
        info.pinned = i == 8;
        if (i == 3) {
            info.path.clear();
            info.cloudName = info.displayText = "二零二四年第一季度财务报告.pptx"_s;
            info.deviceName = "Tablet"_s;
            info.roamingId = "r3"_s;
            info.roaming = info.cloudBacked = true;
            info.cloudFileId = 3;
        }
        list << info;
    }
    return list;
}

class Scene
{
public:
    explicit Scene(const PictureRun &run) : m_run(run) { }

    void show(int rows, bool ready = true)
    {
        m_recent.reset();
        m_store.ready = ready;
        m_store.content = records(rows, zel::now());
        m_recent.reset(new ZelBoxRecentFile(
            ZelBoxRecentFile::Services{&m_proxy, &m_store, &m_events, &m_opener, &m_trash}));
        page()->resize(680, 540);
        page()->show();
        page()->onWindowFirstShown();
        PictureRun::show(page());
    }

    ZelBoxRecentFileWidget *page() const { return m_recent->page(); }
    ZelBoxRecentFileListView *view() const { return page()->view(); }
    template <class Widget> Widget *find() const { return page()->findChild<Widget *>(); }
    NoticeBar *notice() const { return page()->findChild<NoticeBar *>("notice"_s); }

    void save(const char *name, QWidget *widget = nullptr) const
    {
        m_run.save(QLatin1String(name), widget ? widget : page());
    }

private:
    const PictureRun &m_run;
    FakeCloud m_proxy;
    FakeStore m_store;
    KRecentFileEvents m_events;
    FakeOpener m_opener;
    FakeTrash m_trash;
    std::unique_ptr<ZelBoxRecentFile> m_recent;
};

void lists(Scene &scene)
{
    scene.show(5);
    scene.save("few");
    scene.show(5000);
    scene.view()->setFocus();
    const auto centre = [&](int row) {
        return scene.view()->visualRect(scene.view()->model()->index(row, 0)).center();
    };
    QTest::mouseClick(scene.view()->viewport(), Qt::LeftButton, {}, centre(1));
    QTest::mouseClick(scene.view()->viewport(), Qt::LeftButton, Qt::ControlModifier, centre(2));
    QTest::mouseMove(scene.view()->viewport(), centre(3));
    scene.save("many");
    QTest::keyClick(scene.view(), Qt::Key_Down);
    scene.view()->verticalScrollBar()->setValue(690);
    scene.notice()->showText("“Letter to the editor.doc” is no longer there."_s);
    scene.save("scrolled");
    scene.page()->findChildren<NoticeBar *>().constLast()->showAction(
        "3 files are in the recycle bin."_s, "Undo"_s);
    scene.save("undo");
    scene.page()->resize(440, 400);
    scene.save("narrow");
    scene.page()->resize(680, 540);
    scene.page()->setFilterText("report"_s);
    scene.save("found");
    scene.page()->setFilterText("no such name"_s);
    scene.save("nothing");
}

void popups(Scene &scene)
{
    scene.show(5);
    scene.view()->setCurrentIndex(scene.view()->model()->index(3, 0));
    scene.page()->onMoreBtnCustomContextMenuRequested({10, 10});
    scene.save("menu", scene.page()->openMenu());
    scene.page()->openMenu()->close();
    scene.find<RecentSortMenu>()->popup({10, 10});
    scene.save("sortmenu", scene.find<RecentSortMenu>());
    scene.find<RecentSortMenu>()->close();
    const QModelIndex first = scene.view()->model()->index(2, 0);
    scene.page()->onMenuRemoveRecordAction(first);
    scene.save("removedialog", scene.find<RemoveRecordDialog>());
    scene.find<RemoveRecordDialog>()->reject();
    scene.page()->onMenuRemoveFileAction(first);
    scene.save("deletedialog", scene.find<DeleteFileDialog>());
    scene.find<DeleteFileDialog>()->reject();
    scene.page()->onShareDoc(first, true);
    scene.save("sharedialog", scene.find<ShareDialog>());
    scene.find<ShareDialog>()->reject();
    scene.find<ZelBoxRecentFileTitleWidget>()->onRoamingGuideLinkClicked();
    scene.save("guidedialog", scene.find<ZelBoxRecentFileGuideDialog>());
    scene.find<ZelBoxRecentFileGuideDialog>()->reject();
}

void emptyPages(Scene &scene)
{
    using Guide = ZelBoxRecentFileEmptyGuideWidget;
    scene.show(0);
    scene.save("empty");
    scene.find<Guide>()->setReason(Guide::Reason::NotLoggedIn);
    scene.save("empty-loggedout");
    scene.find<ZelBoxRecentFileRoamingGuideWidget>()->setNeeded(true);
    scene.find<Guide>()->setReason(Guide::Reason::RoamingOff);
    scene.save("empty-roamingoff");
    scene.show(3, false);
    QTest::qWait(800);
    scene.save("loading");
    Q_EMIT scene.find<LoadingOuttime>()->sigTimeout();
    scene.save("outtime");
}

} // namespace

int main(int argc, char **argv)
{
    const PictureRun run(argc, argv);
    const FixedNow now(at("2024-03-20 14:30"_s));
    Scene scene(run);
    lists(scene);
    popups(scene);
    emptyPages(scene);
    return 0;
}

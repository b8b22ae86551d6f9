// Paints the page of cloud documents in its states, for people to look at (support/picturerun.h).
#include "clouddoc/pagefixture.h"
#include "support/picturerun.h"

#include "clouddoc/ui/breadcrumbbar.h"
#include "clouddoc/ui/cloudsortmenu.h"
#include "clouddoc/ui/conflictdialog.h"
#include "clouddoc/ui/movedialog.h"
#include "clouddoc/ui/transferpanel.h"

class Scenes : private PageFixture
{
public:
    explicit Scenes(const PictureRun &run) : m_run(run) { }
    ~Scenes() { clear(); }

    void lists()
    {
        fill(5);
        save("few");
        fill(5000);
        view()->setFocus();
        click(1);
        click(4, Qt::ControlModifier);
        QTest::mouseMove(view()->viewport(), centre(3));
        CloudDocModel *model = page()->logic()->documents();
        model->setTransfer(model->document(7).id, CloudDocument::Transfer::Uploading, 45);
        model->setTransfer(model->document(6).id, CloudDocument::Transfer::Failed, 0);
        save("many");
        for (const int width : {320, 440, 600, 800, 1100, 1600})
            save("width%1"_s.arg(width), {width, 420});
        page()->resize(720, 560);
        view()->beginRename(model->index(6));
        save("rename");
        key(Qt::Key_Escape);
        Q_EMIT page()->logic()->undoable(
            {CloudOperation::Trash, 1, {"bin"_s}, "Budget 2024.xlsx"_s, {}, {}, {}});
        save("undo");
        m_cloud->disconnectNow();
        save("stale");
    }

    void places()
    {
        fill(5);
        find<BreadcrumbBar>()->setCrumbs(
            {{"r"_s, "Cloud documents"_s}, {"a"_s, "Projects"_s}, {"b"_s, "North wing"_s},
                {"c"_s, "暖气系统更新"_s}, {"d"_s, "Minutes of the working group on the renewal"_s}});
        save("deep");
        save("deep-narrow", {420, 420});
        fill(5);
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile("/tmp/file.txt"_s)});
        QDragEnterEvent overRow(centre(1), Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(view()->viewport(), &overRow);
        save("drop-row");
        QDragEnterEvent overList({100, 360}, Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(view()->viewport(), &overList);
        save("drop-list");
    }

    void transfers()
    {
        using Progress = CloudTransfer::State;
        fill(40);
        page()->transferPanel()->setOpen(true);
        save("transfers-none");
        putTransfer("Budget 2024.xlsx", Progress::Running, 62);
        putTransfer("Holiday film.mkv", Progress::Waiting, 0);
        putTransfer("archive.tar.gz", Progress::Failed, 12);
        putTransfer("議事録.pdf", Progress::Done, 100);
        putTransfer("Letter to the editor.doc", Progress::Cancelled, 40);
        save("transfers");
        save("transfers-narrow", {320, 420});
    }

    void popups()
    {
        fill(8);
        click(4);
        Q_EMIT view()->customContextMenuRequested(centre(4));
        auto *menu = page()->findChild<QMenu *>("menu-documents"_s);
        m_run.save("menu", menu);
        menu->close();
        find<CloudSortMenu>()->popup({10, 10});
        m_run.save("sortmenu", find<CloudSortMenu>());
        find<CloudSortMenu>()->close();
        CloudConflict conflict;
        conflict.name = "Budget 2024.xlsx"_s;
        conflict.suggestedName = "Budget 2024 (2).xlsx"_s;
        conflict.existing.modifiedAt = zel::now().toMSecsSinceEpoch();
        conflict.existing.size = 48'000;
        conflict.modifiedAt = conflict.existing.modifiedAt - 86'400'000 * 9;
        conflict.size = 51'000;
        ConflictDialog one(CloudOperation::Upload, {conflict}, page());
        one.show();
        m_run.save("conflict", &one);
        ConflictDialog several(CloudOperation::Move, CloudConflicts(7, conflict), page());
        several.show();
        m_run.save("conflicts", &several);
        several.close();
        one.close();
        page()->action(CloudCommand::MoveTo)->trigger();
        answerWith(14);
        m_run.save("move", find<MoveDialog>());
        find<MoveDialog>()->reject();
    }

    void emptyPages()
    {
        start();
        QTest::qWait(600);
        save("loading");
        fill(0);
        save("empty");
        save("empty-narrow", {320, 420});
        fill(5);
        page()->setFilterText("no such name"_s);
        save("nothing");
        start();
        m_cloud->refuse("getInfoList", zel::vela::GetInfoListResult(), 5);
        save("failed");
        start();
        m_cloud->disconnectNow();
        save("offline");
    }

private:
    void start()
    {
        make();
        page()->resize(720, 560);
    }
    void fill(int rows)
    {
        start();
        answerWith(rows);
        page()->setCloudSpace(4'200'000'000, 10'000'000'000);
    }
    void answerWith(int count)
    {
        const QStringList names{"Contracts/"_s, "Reports/"_s, "照片与视频/"_s, "Budget 2024.xlsx"_s,
            "Quarterly report.odt"_s,
            "A very long name that somebody gave to the minutes of the meeting of the working group on the "
            "renewal of the heating system in the north wing, second revised version (final) (2).docx"_s,
            "二零二四年第一季度财务报告及市场分析总结.pptx"_s, "DSC_0042.jpg"_s, "議事録.pdf"_s,
            "drawing.svg"_s, "archive.tar.gz"_s, "Letter to the editor.doc"_s, "notes"_s, "Концерт.flac"_s,
            "parser.cpp"_s};
        QStringList items;
        for (int i = 0; i < count; ++i) {
            const QString number = "%1 "_s.arg(i, 4, 10, QLatin1Char('0'));
            items << (i < names.size() ? QString() : number) + names.at(i % names.size());
        }
        auto result = FakeCloud::page("root"_s, items);
        for (int i = 0; i < count; ++i) {
            result.items[i].size = result.items[i].type == "folder" ? 0 : 1234LL << (i % 20);
            result.items[i].mtime = zel::now().addSecs(-i * i * 2150LL - 180).toMSecsSinceEpoch();
        }
        m_cloud->answer("getInfoList", result);
    }
    void putTransfer(const char *name, CloudTransfer::State state, int percent)
    {
        CloudTransfer transfer;
        transfer.id = transfer.name = QString::fromUtf8(name);
        transfer.state = state;
        transfer.totalBytes = 48'000'000;
        transfer.doneBytes = transfer.totalBytes * percent / 100;
        transfer.bytesPerSecond = 3'400'000;
        transfer.remainingMs = 95'000;
        if (state == CloudTransfer::State::Failed)
            transfer.problem = CloudProblem::DiskFull;
        page()->logic()->transfers()->put({transfer});
    }
    void save(const zeltest::Text &name, const QSize &size = {})
    {
        if (size.isValid())
            page()->resize(size);
        m_run.save(name, page());
    }

    const PictureRun &m_run;
};

int main(int argc, char **argv)
{
    const PictureRun run(argc, argv);
    Scenes scenes(run);
    scenes.lists();
    scenes.places();
    scenes.transfers();
    scenes.popups();
    scenes.emptyPages();
    return 0;
}

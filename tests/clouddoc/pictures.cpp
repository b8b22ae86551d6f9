// Paints the page of cloud documents in its states, for people to look at (support/picturerun.h).
#include "support/fakecloud.h"

#include "base/clock.h"
#include "clouddoc/ui/breadcrumbbar.h"
#include "clouddoc/ui/clouddoclistview.h"
#include "clouddoc/ui/cloudsortmenu.h"
#include "clouddoc/ui/conflictdialog.h"
#include "clouddoc/ui/movedialog.h"
#include "clouddoc/ui/transferpanel.h"
#include "clouddoc/ui/zelboxclouddocwidget.h"
#include "support/picturerun.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QUrl>

namespace {

const QDateTime Now = QDateTime::fromString(QStringLiteral("2024-03-20T14:30:00"), Qt::ISODate);

zel::vela::GetInfoListResult page(const QString &folder, int count)
{
    const char *names[] = {"Contracts/", "Reports/", "照片与视频/", "Budget 2024.xlsx",
        "Quarterly report.odt",
        "A very long name that somebody gave to the minutes of the meeting of the working group on the "
        "renewal "
        "of the heating system in the north wing, second revised version (final) (2).docx",
        "二零二四年第一季度财务报告及市场分析总结.pptx", "DSC_0042.jpg", "議事録.pdf", "drawing.svg",
        "archive.tar.gz", "Letter to the editor.doc", "notes", "Концерт.flac", "parser.cpp"};
    const int known = int(std::size(names));
    auto result = FakeCloud::page(folder, {});
    for (int i = 0; i < count; ++i) {
        QString name = QString::fromUtf8(names[i % known]);
        if (i >= known)
            name.prepend(QStringLiteral("%1 ").arg(i, 4, 10, QLatin1Char('0')));
        auto item = FakeCloud::item(name, folder);
        item.size = item.type == "folder" ? 0 : 1234LL << (i % 20);
        item.mtime = Now.addSecs(-i * i * 2150LL - 180).toMSecsSinceEpoch();
        result.items.push_back(item);
    }
    result.total = count;
    return result;
}

CloudTransfer transfer(const char *name, CloudTransfer::State state, int percent)
{
    CloudTransfer transfer;
    transfer.id = transfer.name = QString::fromUtf8(name);
    transfer.state = state;
    transfer.totalBytes = 48'000'000;
    transfer.doneBytes = transfer.totalBytes * percent / 100;
    transfer.bytesPerSecond = 3'400'000;
    transfer.remainingMs = 95'000;
    transfer.problem = state == CloudTransfer::State::Failed ? CloudProblem::DiskFull : CloudProblem::None;
    return transfer;
}

class Scene
{
public:
    explicit Scene(const PictureRun &run) : m_run(run) { }

    void start()
    {
        m_page.reset();
        m_cloud = std::make_unique<FakeCloud>();
        m_page = std::make_unique<ZelBoxCloudDocWidget>(m_cloud.get());
        m_page->resize(720, 560);
        m_cloud->connectNow();
        PictureRun::show(page());
    }
    void show(int rows)
    {
        start();
        answer(QStringLiteral("root"), rows);
        m_page->setCloudSpace(4'200'000'000, 10'000'000'000);
    }
    void answer(const QString &folder, int rows) { m_cloud->answer("getInfoList", ::page(folder, rows)); }
    void save(const char *name, QWidget *widget = nullptr) const
    {
        m_run.save(QLatin1String(name), widget ? widget : page());
    }

    ZelBoxCloudDocWidget *page() const { return m_page.get(); }
    CloudDocListView *view() const { return m_page->view(); }
    FakeCloud &cloud() { return *m_cloud; }
    QPoint centre(int row) const { return view()->visualRect(view()->model()->index(row, 0)).center(); }
    template <class Widget> Widget *find() const { return m_page->findChild<Widget *>(); }

private:
    const PictureRun &m_run;
    std::unique_ptr<FakeCloud> m_cloud;
    std::unique_ptr<ZelBoxCloudDocWidget> m_page;
};

void lists(Scene &scene)
{
    scene.show(5);
    scene.save("few");
    scene.show(5000);
    scene.view()->setFocus();
    QWidget *viewport = scene.view()->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, scene.centre(1));
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::ControlModifier, scene.centre(4));
    QTest::mouseMove(viewport, scene.centre(3));
    CloudDocModel *model = scene.page()->logic()->documents();
    model->setTransfer(model->document(7).id, CloudDocument::Transfer::Uploading, 45);
    model->setTransfer(model->document(6).id, CloudDocument::Transfer::Failed, 0);
    scene.save("many");
    for (const int width : {320, 440, 600, 800, 1100, 1600}) {
        scene.page()->resize(width, 420);
        scene.save(qPrintable(QStringLiteral("width%1").arg(width)));
    }
    scene.page()->resize(720, 560);
    scene.view()->beginRename(model->index(6));
    scene.save("rename");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    Q_EMIT scene.page()->logic()->undoable(
        {CloudOperation::Trash, 1, {QStringLiteral("bin")}, QStringLiteral("Budget 2024.xlsx"), {}, {}, {}});
    scene.save("undo");
    scene.cloud().disconnectNow();
    scene.save("stale");
}

void places(Scene &scene)
{
    scene.show(5);
    scene.find<BreadcrumbBar>()->setCrumbs({{QStringLiteral("r"), QStringLiteral("Cloud documents")},
        {QStringLiteral("a"), QStringLiteral("Projects")},
        {QStringLiteral("b"), QStringLiteral("North wing")},
        {QStringLiteral("c"), QString::fromUtf8("暖气系统更新")},
        {QStringLiteral("d"), QStringLiteral("Minutes of the working group on the renewal")}});
    scene.save("deep");
    scene.page()->resize(420, 420);
    scene.save("deep-narrow");
    scene.show(5);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/file.txt"))});
    QDragEnterEvent overRow(scene.centre(1), Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(scene.view()->viewport(), &overRow);
    scene.save("drop-row");
    QDragEnterEvent overList({100, 360}, Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(scene.view()->viewport(), &overList);
    scene.save("drop-list");
}

void transfers(Scene &scene)
{
    using State = CloudTransfer::State;
    scene.show(40);
    scene.page()->transferPanel()->setOpen(true);
    scene.save("transfers-none");
    scene.page()->logic()->transfers()->put({transfer("Budget 2024.xlsx", State::Running, 62)});
    scene.page()->logic()->transfers()->put({transfer("Holiday film.mkv", State::Waiting, 0)});
    scene.page()->logic()->transfers()->put({transfer("archive.tar.gz", State::Failed, 12)});
    scene.page()->logic()->transfers()->put({transfer("議事録.pdf", State::Done, 100)});
    scene.page()->logic()->transfers()->put({transfer("Letter to the editor.doc", State::Cancelled, 40)});
    scene.save("transfers");
    scene.page()->resize(320, 420);
    scene.save("transfers-narrow");
}

void popups(Scene &scene)
{
    scene.show(8);
    QTest::mouseClick(scene.view()->viewport(), Qt::LeftButton, {}, scene.centre(4));
    Q_EMIT scene.view()->customContextMenuRequested(scene.centre(4));
    auto *menu = scene.page()->findChild<QMenu *>(QStringLiteral("menu-documents"));
    scene.save("menu", menu);
    menu->close();
    scene.find<CloudSortMenu>()->popup({10, 10});
    scene.save("sortmenu", scene.find<CloudSortMenu>());
    scene.find<CloudSortMenu>()->close();
    CloudConflict conflict;
    conflict.name = QStringLiteral("Budget 2024.xlsx");
    conflict.suggestedName = QStringLiteral("Budget 2024 (2).xlsx");
    conflict.existing.modifiedAt = Now.toMSecsSinceEpoch();
    conflict.existing.size = 48'000;
    conflict.modifiedAt = conflict.existing.modifiedAt - 86'400'000 * 9;
    conflict.size = 51'000;
    ConflictDialog one(CloudOperation::Upload, {conflict}, scene.page());
    one.show();
    scene.save("conflict", &one);
    ConflictDialog several(CloudOperation::Move, CloudConflicts(7, conflict), scene.page());
    several.show();
    scene.save("conflicts", &several);
    several.close();
    one.close();
    scene.page()->action(CloudCommand::MoveTo)->trigger();
    scene.answer(QStringLiteral("root"), 14);
    scene.save("move", scene.find<MoveDialog>());
    scene.find<MoveDialog>()->reject();
}

void emptyPages(Scene &scene)
{
    scene.start();
    QTest::qWait(600);
    scene.save("loading");
    scene.show(0);
    scene.save("empty");
    scene.page()->resize(320, 420);
    scene.save("empty-narrow");
    scene.show(5);
    scene.page()->setFilterText(QStringLiteral("no such name"));
    scene.save("nothing");
    scene.start();
    scene.cloud().refuse("getInfoList", zel::vela::GetInfoListResult(), 5);
    scene.save("failed");
    scene.start();
    scene.cloud().disconnectNow();
    scene.save("offline");
}

} // namespace

int main(int argc, char **argv)
{
    const PictureRun run(argc, argv);
    zel::setFixedNow(Now);
    Scene scene(run);
    lists(scene);
    places(scene);
    transfers(scene);
    popups(scene);
    emptyPages(scene);
    return 0;
}

#include "kthumbnailcache.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/records.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "recentfile/ui/recentfilelistview.h"
#include "support/dragdrop.h"

using namespace recenttest;
using Model = ZelBoxRecentFileModel;

namespace {

/// Has what the test puts in.
class FakeThumbnails : public KThumbnailCache
{
    Q_OBJECT
public:
    QHash<QString, QImage> images;
    QStringList asked;
    FakeThumbnails() { setInstance(this); }
    ~FakeThumbnails() override { setInstance(nullptr); }
    QImage thumbnail(const QString &path, int) override
    {
        asked << path;
        return images.value(path);
    }
    void clear() override { images.clear(); }
};

class View : public ZelBoxRecentFileListView
{
public:
    /// What goes out when these rows are selected and dragged.
    std::unique_ptr<QMimeData> dragged() const
    {
        QModelIndexList rows = selectedRows();
        rows.erase(
            std::remove_if(rows.begin(), rows.end(), [this](const auto &row) { return !canDrag(row); }),
            rows.end());
        return rows.isEmpty() ? nullptr : dragData(rows);
    }
};

bool has(const QImage &image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

} // namespace

/// What the Recent list adds to the list of all pages.
class TestView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // Three rows today, then ten each day: groups 1, 2, 3 and so on.
    void init()
    {
        setZone("UTC");
        zel::setFixedNow(at("2024-03-20 12:00"_s));
        m_thumbnails = std::make_unique<FakeThumbnails>();
        m_source = std::make_unique<Model>();
        m_model = std::make_unique<RecentSortFilterModel>();
        m_model->setSourceModel(m_source.get());
        m_view = std::make_unique<View>();
        m_view->setModel(m_model.get());
        m_view->resize(500, 400);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        const QDateTime noon = at("2024-03-20 11:59"_s);
        RecordInfoList records;
        for (int i = 0; i < 100; ++i)
            records << record("file%1"_s.arg(i), noon.addDays(i < 3 ? 0 : -(1 + (i - 3) / 10)).addSecs(-i));
        m_source->setRecords(records);
        m_view->setFocus();
    }

    void cleanup()
    {
        m_view.reset();
        m_model.reset();
        m_source.reset();
        m_thumbnails.reset();
        zel::setFixedNow({});
    }

    void thumbnailRepaintsItsRow()
    {
        m_view->viewport()->repaint();
        const QString path = index(1).data(Model::PathRole).toString();
        QVERIFY(m_thumbnails->asked.contains(path));
        QVERIFY(m_thumbnails->asked.size() < 20); // of rows that show
        QImage picture(24, 32, QImage::Format_RGB32);
        picture.fill(Qt::magenta);
        m_thumbnails->images.insert(path, picture);
        QCoreApplication::processEvents();
        m_thumbnails->asked.clear();
        Q_EMIT m_thumbnails->loaded("/data/docs/file90.odt"_s);
        Q_EMIT m_thumbnails->loaded(path);
        QTRY_COMPARE(m_thumbnails->asked, QStringList(path));
        QVERIFY(has(m_view->viewport()->grab(m_view->visualRect(index(1))).toImage(), Qt::magenta));
    }

    // A day may have begun while the user or the machine was away.
    void returningLooksAgain()
    {
        zel::setFixedNow(at("2024-03-21 08:00"_s));
        QEvent active(QEvent::WindowActivate);
        QCoreApplication::sendEvent(m_view.get(), &active);
        QCOMPARE(m_model->sections().at(0).key, 2);
    }

    void rowButtons()
    {
        QSignalSpy shared(m_view.get(), &View::sigShareDoc);
        QSignalSpy more(m_view.get(), &View::moreRequested);
        QTest::mouseMove(m_view->viewport(), m_view->visualRect(index(1)).center());
        for (const int button : {RecentButton::Share, RecentButton::More}) {
            const QRect place =
                m_view->rowDelegate()->buttonRect(m_view->rowOption(index(1)), index(1), button);
            QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, place.center());
        }
        QCOMPARE(shared.value(0).value(0).value<QPersistentModelIndex>().row(), 1);
        QCOMPARE(more.value(0).value(0).toModelIndex().row(), 1);
        QCOMPARE(shared.size() + more.size(), 2);
    }

    void draggedFiles()
    {
        QVERIFY(!m_view->dragged());
        change(1, [](RecentFileInfo &info) { info.presence = RecentFileInfo::Presence::Missing; });
        change(2, [](RecentFileInfo &info) { info.path.clear(); });
        select(1, 2);
        QVERIFY(!m_view->dragged());
        change(0, [](RecentFileInfo &info) { info.path = "/data/a b#%.odt"_s; });
        select(0, 3);
        const auto data = m_view->dragged();
        QCOMPARE(data->data("text/uri-list"_s),
            QByteArrayLiteral("file:///data/a%20b%23%25.odt\r\nfile:///data/docs/file3.odt\r\n"));
        QCOMPARE(data->text(), "/data/a b#%.odt\n/data/docs/file3.odt"_s);
    }

    void drops_data()
    {
        const auto row = zeltest::table<QStringList, int, QStringList>("urls", "actions", "expected");
        const QString local = "file:///data/a%20b.odt"_s;
        const QStringList path{"/data/a b.odt"_s};
        row("file", QStringList{local}, int(Qt::CopyAction | Qt::MoveAction), path);
        row("link only", QStringList{local}, int(Qt::LinkAction), path);
        row("would be moved", QStringList{local}, int(Qt::MoveAction), {});
        row("twice, and a remote one", QStringList{local, "https://example.com/x"_s, local},
            int(Qt::CopyAction), path);
        row("remote ones", QStringList{"sftp://host/x"_s, "file://host/x"_s}, int(Qt::CopyAction), {});
        row("no files", {}, int(Qt::CopyAction), {});
    }
    void drops()
    {
        const auto [urls, actions, expected] = zeltest::row<QStringList, int, QStringList>();
        QMimeData data;
        data.setText("/data/a b.odt"_s);
        if (!urls.isEmpty())
            data.setUrls(QUrl::fromStringList(urls));
        QSignalSpy dropped(m_view.get(), &View::filesDropped);
        const auto taken = zeltest::drop(m_view->viewport(), {100, 100}, &data, Qt::DropActions(actions));
        QCOMPARE(taken != Qt::IgnoreAction, !expected.isEmpty());
        QVERIFY(taken != Qt::MoveAction);
        QCOMPARE(dropped.value(0).value(0).toStringList(), expected);
    }

    void tipShowsPathAsText()
    {
        change(0, [](RecentFileInfo &info) {
            info.path = "/data/<b>bold</b> & <img src=x>"_s + QChar(0x202E) + "txt.exe"_s;
            info.size = 12 * 1024;
            info.deviceName = "<i>Laptop</i>"_s;
        });
        const QString tip = m_view->rowDelegate()->toolTip(index(0));
        for (const char *part : {"&lt;b&gt;bold&lt;/b&gt; &amp; &lt;img src=x&gt; txt.exe<br>", "2024",
                 "12 kB", "&lt;i&gt;Laptop"})
            QVERIFY2(tip.contains(QLatin1String(part), Qt::CaseInsensitive), qPrintable(tip));
    }

    void folders()
    {
        const std::pair<const char *, const char *> cases[] = {{"/home/ann/a.odt", "~"},
            {"/home/ann/docs/a.odt", "~/docs"}, {"/home/anna/a.odt", "/home/anna"}, {"/a.odt", "/"},
            {"", ""}};
        for (const auto &[path, expected] : cases)
            QCOMPARE(zel::recent::folderText(QLatin1String(path), "/home/ann"_s), QLatin1String(expected));
    }

private:
    void change(int row, const std::function<void(RecentFileInfo &)> &changer)
    {
        RecentFileInfo info = m_model->record(row);
        changer(info);
        QVERIFY(m_source->updateRecord(info));
    }
    void select(int first, int last)
    {
        m_view->selectionModel()->select({index(first), index(last)}, QItemSelectionModel::ClearAndSelect);
    }
    QModelIndex index(int row) const { return m_model->index(row); }

    std::unique_ptr<FakeThumbnails> m_thumbnails;
    std::unique_ptr<Model> m_source;
    std::unique_ptr<RecentSortFilterModel> m_model;
    std::unique_ptr<View> m_view;
};

QTEST_MAIN(TestView)
#include "tst_view.moc"

#include "kthumbnailcache.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/records.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "recentfile/ui/recentfilelistview.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <memory>

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
    void init();
    void cleanup();
    void thumbnailRepaintsItsRow();
    void selectionSurvives();
    void returningLooksAgain();
    void rowButtons();
    void draggedFiles();
    void drops_data();
    void drops();
    void tipShowsPathAsText();
    void folders();

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

    RecordInfoList m_records;
    std::unique_ptr<FakeThumbnails> m_thumbnails;
    std::unique_ptr<Model> m_source;
    std::unique_ptr<RecentSortFilterModel> m_model;
    std::unique_ptr<View> m_view;
};

// Three rows today, then ten each day: groups 1, 2, 3 and so on.
void TestView::init()
{
    setZone("UTC");
    zel::setFixedNow(at(QStringLiteral("2024-03-20 12:00")));
    m_thumbnails = std::make_unique<FakeThumbnails>();
    m_source = std::make_unique<Model>();
    m_model = std::make_unique<RecentSortFilterModel>();
    m_model->setSourceModel(m_source.get());
    m_view = std::make_unique<View>();
    m_view->setModel(m_model.get());
    m_view->resize(500, 400);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    const QDateTime noon = at(QStringLiteral("2024-03-20 11:59"));
    m_records.clear();
    for (int i = 0; i < 100; ++i)
        m_records << record(
            QStringLiteral("file%1").arg(i), noon.addDays(i < 3 ? 0 : -(1 + (i - 3) / 10)).addSecs(-i));
    m_source->setRecords(m_records);
    m_view->setFocus();
}

void TestView::cleanup()
{
    m_view.reset();
    m_model.reset();
    m_source.reset();
    m_thumbnails.reset();
    zel::setFixedNow({});
}

void TestView::thumbnailRepaintsItsRow()
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
    Q_EMIT m_thumbnails->loaded(QStringLiteral("/data/docs/file90.odt"));
    Q_EMIT m_thumbnails->loaded(path);
    QTRY_COMPARE(m_thumbnails->asked, QStringList(path));
    QVERIFY(has(m_view->viewport()->grab(m_view->visualRect(index(1))).toImage(), Qt::magenta));
}

// The list of all pages keeps it; here, that the models of this one tell what it needs.
void TestView::selectionSurvives()
{
    select(50, 52);
    const QStringList before = m_view->selectedIds();
    m_model->setFilter({QStringLiteral("file5"), {}});
    m_model->setFilter({});
    m_model->setSort({RecentSort::Key::Time, Qt::AscendingOrder});
    m_source->setRecords(m_records);
    QStringList after = m_view->selectedIds();
    std::reverse(after.begin(), after.end());
    QCOMPARE(after, before);
}

// A day may have begun while the user or the machine was away.
void TestView::returningLooksAgain()
{
    zel::setFixedNow(at(QStringLiteral("2024-03-21 08:00")));
    QEvent active(QEvent::WindowActivate);
    QCoreApplication::sendEvent(m_view.get(), &active);
    QCOMPARE(m_model->sections().at(0).key, 2);
}

void TestView::rowButtons()
{
    QSignalSpy shared(m_view.get(), &View::sigShareDoc);
    QSignalSpy more(m_view.get(), &View::moreRequested);
    QTest::mouseMove(m_view->viewport(), m_view->visualRect(index(1)).center());
    for (const int button : {RecentButton::Share, RecentButton::More}) {
        const QRect place = m_view->rowDelegate()->buttonRect(m_view->rowOption(index(1)), index(1), button);
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, place.center());
    }
    QCOMPARE(shared.value(0).value(0).value<QPersistentModelIndex>().row(), 1);
    QCOMPARE(more.value(0).value(0).toModelIndex().row(), 1);
    QCOMPARE(shared.size() + more.size(), 2);
}

void TestView::draggedFiles()
{
    QVERIFY(!m_view->dragged());
    change(1, [](RecentFileInfo &info) { info.presence = RecentFileInfo::Presence::Missing; });
    change(2, [](RecentFileInfo &info) { info.path.clear(); });
    select(1, 2);
    QVERIFY(!m_view->dragged());
    change(0, [](RecentFileInfo &info) { info.path = QStringLiteral("/data/a b#%.odt"); });
    select(0, 3);
    const auto data = m_view->dragged();
    QCOMPARE(data->data(QStringLiteral("text/uri-list")),
        QByteArrayLiteral("file:///data/a%20b%23%25.odt\r\nfile:///data/docs/file3.odt\r\n"));
    QCOMPARE(data->text(), QStringLiteral("/data/a b#%.odt\n/data/docs/file3.odt"));
}

void TestView::drops_data()
{
    QTest::addColumn<QStringList>("urls");
    QTest::addColumn<int>("actions");
    QTest::addColumn<QStringList>("expected");
    const QString local = QStringLiteral("file:///data/a%20b.odt");
    const QStringList path{QStringLiteral("/data/a b.odt")};
    QTest::newRow("file") << QStringList{local} << int(Qt::CopyAction | Qt::MoveAction) << path;
    QTest::newRow("link only") << QStringList{local} << int(Qt::LinkAction) << path;
    QTest::newRow("would be moved") << QStringList{local} << int(Qt::MoveAction) << QStringList();
    QTest::newRow("twice, and a remote one")
        << QStringList{local, QStringLiteral("https://example.com/x"), local} << int(Qt::CopyAction) << path;
    QTest::newRow("remote ones") << QStringList{QStringLiteral("sftp://host/x"),
        QStringLiteral("file://host/x")}
                                 << int(Qt::CopyAction) << QStringList();
    QTest::newRow("no files") << QStringList() << int(Qt::CopyAction) << QStringList();
}

void TestView::drops()
{
    QFETCH(QStringList, urls);
    QFETCH(int, actions);
    QFETCH(QStringList, expected);
    QMimeData data;
    data.setText(QStringLiteral("/data/a b.odt"));
    if (!urls.isEmpty())
        data.setUrls(QUrl::fromStringList(urls));
    QSignalSpy dropped(m_view.get(), &View::filesDropped);
    const Qt::DropActions possible(actions);
    QDragEnterEvent enter({100, 100}, possible, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_view->viewport(), &enter);
    QCOMPARE(enter.isAccepted(), !expected.isEmpty());
    QVERIFY(enter.dropAction() != Qt::MoveAction || expected.isEmpty());
    QDropEvent drop({100, 100}, possible, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_view->viewport(), &drop);
    QCOMPARE(dropped.value(0).value(0).toStringList(), expected);
}

void TestView::tipShowsPathAsText()
{
    change(0, [](RecentFileInfo &info) {
        info.path =
            QStringLiteral("/data/<b>bold</b> & <img src=x>") + QChar(0x202E) + QStringLiteral("txt.exe");
        info.size = 12 * 1024;
        info.deviceName = QStringLiteral("<i>Laptop</i>");
    });
    const QString tip = m_view->rowDelegate()->toolTip(index(0));
    for (const char *part :
        {"&lt;b&gt;bold&lt;/b&gt; &amp; &lt;img src=x&gt; txt.exe<br>", "2024", "12 kB", "&lt;i&gt;Laptop"})
        QVERIFY2(tip.contains(QLatin1String(part), Qt::CaseInsensitive), qPrintable(tip));
}

void TestView::folders()
{
    const std::pair<const char *, const char *> cases[] = {{"/home/ann/a.odt", "~"},
        {"/home/ann/docs/a.odt", "~/docs"}, {"/home/anna/a.odt", "/home/anna"}, {"/a.odt", "/"}, {"", ""}};
    for (const auto &[path, expected] : cases)
        QCOMPARE(zel::recent::folderText(QLatin1String(path), QStringLiteral("/home/ann")),
            QLatin1String(expected));
}

QTEST_MAIN(TestView)
#include "tst_view.moc"

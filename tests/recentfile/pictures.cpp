// Paints the Recent page in its states into PNG files, and says how long a list of 100,000 records takes.
// ZEL_RESOURCES=<folder of the resource bundle> recentfile_pictures <folder>; QT_SCALE_FACTOR=2 for high
// resolution, "dark" as second argument for the dark skin.
#include "fakes.h"
#include "kliteskin.h"
#include "klitestyle.h"
#include "kskin.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/ui/inlinenotice.h"
#include "recentfile/ui/loadingouttime.h"
#include "recentfile/ui/recentfile.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfilewidget.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
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
        home("ドキュメント/議事録.pdf"),
        QStringLiteral("/mnt/share/projects/heating/plans/north-wing/floor-2/drawing.svg"),
        home("archive.tar.gz"), home("Documents/Letter to the editor.doc"), home("notes"),
        home("Музыка/Концерт.flac"), home("src/parser.cpp")};
    RecordInfoList list;
    for (int i = 0; i < count; ++i) {
        RecentFileInfo info = record(QString::number(i), now.addSecs(-i * i * 150LL - i * 1200LL - 180));
        info.path = paths.at(i % paths.size());
        if (i % 9 == 4)
            info.presence = RecentFileInfo::Presence::Missing;
        if (i == 2 || i == 3)
            info.unread = i - 2;
        list << info;
    }
    return list;
}

class Scene
{
public:
    Scene(const QString &folder, const QString &suffix) : m_folder(folder), m_suffix(suffix) { }

    void show(int rows, bool ready = true)
    {
        m_store.ready = ready;
        m_store.content = records(rows, zel::now());
        m_recent.reset(new ZelBoxRecentFile(KRecentFileLogic::Services{&m_store, &m_events, &m_opener, {}}));
        page()->resize(680, 540);
        page()->show();
        page()->onWindowFirstShown();
        if (!QTest::qWaitForWindowExposed(page()))
            qFatal("the window does not show");
    }

    ZelBoxRecentFileWidget *page() const { return m_recent->page(); }
    ZelBoxRecentFileListView *view() const { return page()->view(); }

    void save(const QString &name) const
    {
        page()->grab().save(m_folder + QLatin1Char('/') + name + m_suffix + QStringLiteral(".png"));
    }

private:
    QString m_folder;
    QString m_suffix;
    FakeStore m_store;
    KRecentFileEvents m_events;
    FakeOpener m_opener;
    std::unique_ptr<ZelBoxRecentFile> m_recent;
};

void pictures(Scene &scene)
{
    scene.show(0);
    scene.save(QStringLiteral("empty"));
    scene.show(5);
    scene.save(QStringLiteral("few"));
    scene.show(5000);
    scene.view()->setFocus();
    QTest::mouseClick(scene.view()->viewport(), Qt::LeftButton, {}, {200, 120});
    QTest::mouseMove(scene.view()->viewport(), {300, 70});
    QTest::qWait(50);
    scene.save(QStringLiteral("many"));
    QTest::keyClick(scene.view(), Qt::Key_Down);
    scene.view()->verticalScrollBar()->setValue(690);
    scene.page()->findChild<InlineNotice *>()->showText(QStringLiteral("This file is no longer there."));
    QTest::qWait(50);
    scene.save(QStringLiteral("scrolled"));
    scene.page()->resize(340, 400);
    QTest::qWait(50);
    scene.save(QStringLiteral("narrow"));
    scene.show(3, false);
    QTest::qWait(800);
    scene.save(QStringLiteral("loading"));
    Q_EMIT scene.page()->findChild<LoadingOuttime *>()->sigTimeout();
    scene.save(QStringLiteral("outtime"));
}

void measure()
{
    const RecordInfoList list = records(100000, zel::now());
    ZelBoxRecentFileModel model;
    ZelBoxRecentFileListView view;
    view.setModel(&model);
    view.resize(680, 540);
    view.show();
    if (!QTest::qWaitForWindowExposed(&view))
        qFatal("the window does not show");
    for (int round = 0; round < 3; ++round) {
        QElapsedTimer timer;
        timer.start();
        model.setRecords(list);
        const double set = timer.nsecsElapsed() / 1e6;
        view.viewport()->repaint();
        const double both = timer.nsecsElapsed() / 1e6;
        qInfo("%d records: set %.2f ms, with the first painting %.2f ms", list.size(), set, both);
        model.addRecord(record(QStringLiteral("new"), zel::now()));
        qInfo("one more record: %.3f ms", timer.nsecsElapsed() / 1e6 - both);
    }
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool dark = arguments.value(2) == QLatin1String("dark");
    QApplication::setStyle(new KLiteStyle);
    KLiteSkinInfo skin;
    KLitOfficeInfo office;
    office.resourceDirs << qEnvironmentVariable("ZEL_RESOURCES");
    KLiteSkin::setOfficeInfo(office);
    KLiteSkin::setDefaultBaseSkinInfo(skin);
    QApplication::setPalette(KLiteStyle::palette(dark));
    KSkin::setTheme(dark ? KSkin::Theme::Dark : KSkin::Theme::Light);
    const FixedNow now(at(QStringLiteral("2024-03-20 14:30")));
    Scene scene(arguments.value(1, QStringLiteral(".")),
        (dark ? QStringLiteral("-dark") : QString()) + QStringLiteral("-%1x").arg(app.devicePixelRatio()));
    pictures(scene);
    measure();
    return 0;
}

// Paints the mini window, the quick search and the tray icons, for people to look at (support/picturerun.h).

#include "mini/ui/ministrip.h"
#include "mini/ui/zelboxminiwidget.h"
#include "mini/ui/zelboxminiwindow.h"
#include "recentfile/fakes.h"
#include "support/picturerun.h"
#include "support/text.h"
#include "tray/trayimage.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPainter>
#include <QTest>

using namespace recenttest;

namespace {

RecordInfoList records(const QDateTime &now)
{
    const char *names[] = {"Documents/Budget 2024.xlsx", "Documents/Reports/Quarterly report.odt",
        "文档/二零二四年第一季度财务报告及市场分析总结.pptx",
        "Downloads/A very long name that somebody gave to the minutes of the meeting (final) (2).docx",
        "Pictures/Holiday/DSC_0042.jpg", "Музыка/Концерт.flac", "src/parser.cpp", "Documents/Letter.pdf",
        "notes.txt"};
    RecordInfoList list;
    for (const char *name : names) {
        const int i = list.size();
        RecentFileInfo info = record(QString::number(i), now.addSecs(-i * i * 9000LL - 180));
        info.path = QDir::homePath() + QLatin1Char('/') + QString::fromUtf8(name);
        info.presence = i == 4 ? RecentFileInfo::Presence::Missing : RecentFileInfo::Presence::Present;
        info.pinned = i == 7;
        list << info;
    }
    return list;
}

class Scene
{
public:
    explicit Scene(const PictureRun &run) : m_run(run) { }

    KRecentFileLogic::Services services(const RecordInfoList &content)
    {
        m_store.content = content;
        return {&m_store, &m_events, &m_opener};
    }
    void save(const char *name, const QPixmap &picture) const { m_run.save(QLatin1String(name), picture); }
    void save(const char *name, QWidget &widget) const { m_run.save(QLatin1String(name), &widget); }

private:
    const PictureRun &m_run;
    FakeStore m_store;
    KRecentFileEvents m_events;
    FakeOpener m_opener;
};

void miniWindow(Scene &scene, const RecordInfoList &content)
{
    ZelBoxMiniWindow window(nullptr, scene.services(content));
    window.showToFront();
    QTest::qWait(300);
    scene.save("mini", window);
    QTest::keyClick(window.findChild<QLineEdit *>(), Qt::Key_Down);
    window.setPinned(true);
    scene.save("mini-pinned", window);
    window.setPinned(false);
    window.findChild<QLineEdit *>()->setText("no such name"_s);
    scene.save("mini-nothing", window);
    window.hide();

    QWidget desk;
    desk.resize(60, 300);
    MiniStrip strip(&desk);
    strip.setGeometry(55, 0, 5, 300);
    desk.show();
    scene.save("mini-strip", desk);
}

void quickSearch(Scene &scene, const RecordInfoList &content)
{
    ZelBoxMiniWidget widget(nullptr, scene.services(content));
    widget.showWithFocus();
    QTest::qWait(300);
    scene.save("quick", widget);
    widget.findChild<QLineEdit *>()->setText("report"_s);
    scene.save("quick-found", widget);
    ZelBoxMiniWidget empty(nullptr, scene.services({}));
    empty.showWithFocus();
    QTest::qWait(300);
    scene.save("quick-empty", empty);
}

// Each size as it is, and below it eight times as large, on light and dark panels.
void trayIcons(Scene &scene)
{
    QPixmap sheet(1500, 620);
    sheet.fill(QColor(0xee, 0xee, 0xee));
    QPainter painter(&sheet);
    painter.fillRect(0, 310, 1500, 310, QColor(0x22, 0x26, 0x2c));
    for (int half = 0; half < 2; ++half) {
        int x = 10;
        for (const int size : {16, 22, 32, 48}) {
            for (const int unread : {0, 4, 128}) {
                const QImage image = zel::tray::image(size, unread);
                painter.drawImage(x, half * 310 + 10, image);
                painter.drawImage(x, half * 310 + 70, image.scaled(image.size() * (128 / size)));
                x += 122;
            }
        }
    }
    painter.end();
    scene.save("tray", sheet);
}

} // namespace

int main(int argc, char **argv)
{
    const PictureRun run(argc, argv);
    const FixedNow now(at("2024-03-20 14:30"_s));
    Scene scene(run);
    const RecordInfoList content = records(zel::now());
    miniWindow(scene, content);
    quickSearch(scene, content);
    trayIcons(scene);
    return 0;
}

// Paints the mini window, the quick search and the tray icons, for people to look at (support/picturerun.h).

#include "mini/ui/ministrip.h"
#include "mini/ui/zelboxminiwidget.h"
#include "mini/ui/zelboxminiwindow.h"
#include "recentfile/fakes.h"
#include "support/picturerun.h"
#include "tray/trayimage.h"

using namespace recenttest;

namespace {

RecordInfoList records()
{
    auto list = recordsAtHome(
        {"Documents/Budget 2024.xlsx", "Documents/Reports/Quarterly report.odt",
            "文档/二零二四年第一季度财务报告及市场分析总结.pptx",
            "Downloads/A very long name that somebody gave to the minutes of the meeting (final) (2).docx",
            "Pictures/Holiday/DSC_0042.jpg", "Музыка/Концерт.flac", "src/parser.cpp", "Documents/Letter.pdf",
            "notes.txt"},
        9, [](qint64 i) { return i * i * 9000; });
    for (RecentFileInfo &info : list)
        info.presence = RecentFileInfo::Presence::Present;
    list[4].presence = RecentFileInfo::Presence::Missing;
    list[7].pinned = true;
    return list;
}

void paint(const PictureRun &run)
{
    FakeStore store;
    KRecentFileEvents events;
    FakeOpener opener;
    store.content = records();
    const KRecentFileLogic::Services services{&store, &events, &opener};
    const auto save = [&](const char *name, QWidget &widget, const QString &text = {}) {
        if (!text.isEmpty())
            widget.findChild<QLineEdit *>()->setText(text);
        QTest::qWait(300);
        run.save(name, &widget);
    };
    {
        ZelBoxMiniWindow window(nullptr, services);
        window.showToFront();
        save("mini", window);
        QTest::keyClick(window.findChild<QLineEdit *>(), Qt::Key_Down);
        window.setPinned(true);
        save("mini-pinned", window);
        window.setPinned(false);
        save("mini-nothing", window, "no such name"_s);
    }
    QWidget desk;
    desk.resize(60, 300);
    MiniStrip strip(&desk);
    strip.setGeometry(55, 0, 5, 300);
    desk.show();
    save("mini-strip", desk);
    ZelBoxMiniWidget widget(nullptr, services);
    widget.showWithFocus();
    save("quick", widget);
    save("quick-found", widget, "report"_s);
    store.content.clear();
    ZelBoxMiniWidget empty(nullptr, services);
    empty.showWithFocus();
    save("quick-empty", empty);
}

// Each size as it is, and below it eight times as large, on light and dark panels.
QPixmap trayIcons()
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
    return sheet;
}

} // namespace

int main(int argc, char **argv)
{
    const PictureRun run(argc, argv);
    paint(run);
    run.save("tray", trayIcons());
    return 0;
}

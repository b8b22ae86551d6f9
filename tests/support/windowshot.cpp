// Waits for a window by its title and saves what it shows: windowshot TITLE FILE.png [SECONDS]
#include "support/xscreen.h"

#include <QImage>
#include <QString>

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    using namespace std::chrono_literals;
    if (argc < 3) {
        std::fputs("usage: windowshot TITLE FILE.png [SECONDS]\n", stderr);
        return 2;
    }
    const std::chrono::seconds limit(argc > 3 ? std::atoi(argv[3]) : 30);
    zeltest::XScreen screen;
    const auto window = screen.isConnected() ? screen.waitForTitle(argv[1], limit) : 0;
    if (window == 0) {
        std::fprintf(stderr, "windowshot: no window named \"%s\"\n", argv[1]);
        return 1;
    }
    screen.waitUntilPainted(window, 500ms, 10s);
    const auto pixels = screen.grab(window);
    const QImage image(reinterpret_cast<const uchar *>(pixels.argb.data()), pixels.width, pixels.height,
        QImage::Format_RGB32);
    if (image.isNull() || !image.save(QString::fromLocal8Bit(argv[2]))) {
        std::fprintf(stderr, "windowshot: cannot save %s\n", argv[2]);
        return 1;
    }
    return 0;
}

// Renders the program's icon at one size, at build time: rendericon IN.svg OUT.png SIDE
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

// The picture has a margin of 1/32, which at small sizes is half a pixel and would blur all four edges.
constexpr int SmallestWithMargin = 48;
constexpr qreal Margin = 1.0 / 32;

QRectF target(int side)
{
    const QRectF whole(0, 0, side, side);
    if (side >= SmallestWithMargin)
        return whole;
    const qreal surplus = side * Margin / (1 - 2 * Margin);
    return whole.adjusted(-surplus, -surplus, surplus, surplus);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int side = arguments.value(3).toInt();
    QSvgRenderer renderer(arguments.value(1));
    if (!renderer.isValid() || side <= 0) {
        std::fputs("usage: rendericon IN.svg OUT.png SIDE\n", stderr);
        return 2;
    }
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, target(side));
    painter.end();
    if (image.save(arguments.value(2), "PNG"))
        return 0;
    std::fprintf(stderr, "cannot write %s\n", argv[2]);
    return 1;
}

#include "mini/ui/ministrip.h"

#include "klitestyle.h"
#include "kskin.h"

#include <QPainter>

MiniStrip::MiniStrip(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void MiniStrip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), KSkin::color(KSkin::Color::Surface));
    painter.setPen(KSkin::color(KSkin::Color::Border));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const bool upright = height() > width();
    const int length = KLiteStyle::dpiScaled(56);
    QRect grip(QPoint(), upright ? QSize(width() - 2, length) : QSize(length, height() - 2));
    grip.moveCenter(rect().center());
    painter.fillRect(grip, KSkin::color(KSkin::Color::Accent));
}

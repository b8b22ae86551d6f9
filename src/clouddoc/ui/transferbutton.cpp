#include "clouddoc/ui/transferbutton.h"

#include "klitestyle.h"
#include "kskin.h"
#include "widgets/rowpaint.h"

#include <QPainter>

TransferButton::TransferButton(QWidget *parent)
    : IconButton(QStringLiteral(":/icons_svg/transfer.svg"), tr("Transfers"), parent)
{
    setCheckable(true);
}

void TransferButton::setProgress(int active, int percent, bool failed)
{
    m_percent = active > 0 ? qMax(0, percent) : -1;
    m_failed = failed;
    const QString name = active > 0 ? tr("Transfers: %Ln running, %1%", nullptr, active).arg(m_percent)
        : failed                    ? tr("Transfers: something went wrong")
                                    : tr("Transfers");
    if (name != accessibleName())
        setName(name);
    update();
}

void TransferButton::paintEvent(QPaintEvent *event)
{
    IconButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_percent >= 0) {
        const int margin = KLiteStyle::dpiScaled(7);
        const int height = KLiteStyle::dpiScaled(3);
        const QRect bar(
            margin, this->height() - height - KLiteStyle::dpiScaled(2), width() - 2 * margin, height);
        zel::paintProgress(&painter, bar, m_percent);
    }
    if (!m_failed)
        return;
    const qreal side = KLiteStyle::dpiScaledF(7);
    painter.setPen(QPen(KSkin::color(KSkin::Color::Surface), 1.5));
    painter.setBrush(KSkin::color(KSkin::Color::Badge));
    painter.drawEllipse(QRectF(width() - side * 1.8, side * 0.7, side, side));
}

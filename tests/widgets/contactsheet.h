#pragma once

#include <QPainter>
#include <QPixmap>
#include <QString>
#include <QVector>

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"

/// Rows of pictures with a caption each, put together to one image.
class ContactSheet
{
public:
    void heading(const QString &text) { m_rows.append({text, {}, true}); }
    void row(const QString &caption, const QVector<QPixmap> &cells)
    {
        m_rows.append({caption, cells, false});
    }

    QImage image(qreal ratio) const
    {
        QSize size(2 * Margin, 2 * Margin);
        for (const Row &row : m_rows) {
            size.setWidth(qMax(size.width(), 2 * Margin + row.width()));
            size.rheight() += row.height() + Gap;
        }
        QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(KSkin::color(KSkin::Color::Surface));
        QPainter painter(&image);
        int y = Margin;
        for (const Row &row : m_rows) {
            row.paint(painter, y);
            y += row.height() + Gap;
        }
        return image;
    }

private:
    static constexpr int Margin = 24;
    static constexpr int Gap = 12;
    static constexpr int CaptionWidth = 150;

    struct Row
    {
        QString caption;
        QVector<QPixmap> cells;
        bool isHeading;

        static QSize sizeOf(const QPixmap &cell) { return cell.size() / cell.devicePixelRatio(); }
        int width() const
        {
            int sum = CaptionWidth;
            for (const QPixmap &cell : cells)
                sum += sizeOf(cell).width() + Gap;
            return sum;
        }
        int height() const
        {
            int tallest = isHeading ? 28 : 18;
            for (const QPixmap &cell : cells)
                tallest = qMax(tallest, sizeOf(cell).height());
            return tallest;
        }
        void paint(QPainter &painter, int y) const
        {
            using zel::look::Type;
            painter.setFont(zel::look::font(isHeading ? Type::Title : Type::Caption));
            painter.setPen(KSkin::color(isHeading ? KSkin::Color::Text : KSkin::Color::TextSecondary));
            painter.drawText(
                QRect(Margin, y, isHeading ? 600 : CaptionWidth, height()), Qt::AlignVCenter, caption);
            int x = Margin + CaptionWidth;
            for (const QPixmap &cell : cells) {
                painter.drawPixmap(x, y + (height() - sizeOf(cell).height()) / 2, cell);
                x += sizeOf(cell).width() + Gap;
            }
        }
    };
    QVector<Row> m_rows;
};

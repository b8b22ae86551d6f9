#include "mainwindow/ui/navigationbar.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/focusring.h"
#include "widgets/svgicon.h"

#include <QAbstractButton>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace look = zel::look;

/// One page in the list: icon, title, badge.
class NavigationButton final : public QAbstractButton
{
public:
    NavigationButton(const zel::PageInfo &page, QWidget *parent) : QAbstractButton(parent), m_icon(page.icon)
    {
        setText(page.title);
        setAccessibleName(page.title);
        setObjectName(QStringLiteral("page_") + page.key);
        setCheckable(true);
        setAutoExclusive(true); // it then calls itself one of several, not a switch
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
        setFixedHeight(KLiteStyle::dpiScaled(look::SideRowHeight));
    }

    void setBadge(int count, int redPoints)
    {
        m_count = count;
        m_redPoints = redPoints;
        setAccessibleDescription(count > 0 ? NavigationBar::tr("%Ln unread", nullptr, count) : QString());
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override;
    void keyPressEvent(QKeyEvent *event) override
    {
        // A button would move the focus by itself; the list moves the choice with it.
        if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
            event->ignore();
        else
            QAbstractButton::keyPressEvent(event);
    }
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
            update();
        return QAbstractButton::event(event);
    }

private:
    void paintBadge(QPainter &painter) const;

    QString m_icon;
    int m_count = 0;
    int m_redPoints = 0;
};

void NavigationButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF plate = QRectF(rect()).adjusted(1, 1, -1, -1);
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    if (isChecked() || underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(KSkin::color(isChecked() ? KSkin::Color::Selected : KSkin::Color::Hover));
        painter.drawRoundedRect(plate, radius, radius);
    }
    const int glyph = KLiteStyle::dpiScaled(look::Glyph);
    const int pad = KLiteStyle::dpiScaled(10);
    const QColor ink = KSkin::color(isChecked() ? KSkin::Color::Accent : KSkin::Color::TextSecondary);
    painter.drawPixmap(QPoint(pad, (height() - glyph) / 2),
        zel::tintedPixmap(m_icon, {glyph, glyph}, devicePixelRatioF(), ink));

    QFont textFont = font();
    textFont.setWeight(isChecked() ? QFont::DemiBold : QFont::Normal);
    painter.setFont(textFont);
    painter.setPen(KSkin::color(KSkin::Color::Text));
    const int badgeRoom = m_count > 0 || m_redPoints > 0 ? KLiteStyle::dpiScaled(44) : pad;
    const QRect textRect = rect().adjusted(pad + glyph + pad, 0, -badgeRoom, 0);
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft,
        painter.fontMetrics().elidedText(text(), Qt::ElideRight, textRect.width()));
    paintBadge(painter);
    zel::paintFocusRing(&painter, this, plate, radius);
}

void NavigationButton::paintBadge(QPainter &painter) const
{
    if (m_count <= 0 && m_redPoints <= 0)
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(KSkin::color(KSkin::Color::Badge));
    const qreal right = width() - KLiteStyle::dpiScaledF(10);
    if (m_count <= 0) {
        const qreal dot = KLiteStyle::dpiScaledF(8);
        painter.drawEllipse(QRectF(right - dot, (height() - dot) / 2, dot, dot));
        return;
    }
    const QString number = m_count > 99 ? QStringLiteral("99+") : QString::number(m_count);
    const qreal tall = KLiteStyle::dpiScaledF(16);
    const qreal wide =
        qMax(tall, painter.fontMetrics().horizontalAdvance(number) + KLiteStyle::dpiScaledF(8));
    const QRectF pill(right - wide, (height() - tall) / 2, wide, tall);
    painter.drawRoundedRect(pill, tall / 2, tall / 2);
    painter.setPen(KSkin::color(KSkin::Color::OnBadge));
    painter.drawText(pill, Qt::AlignCenter, number);
}

NavigationBar::NavigationBar(const zel::PageList &pages, QWidget *parent) : QWidget(parent)
{
    setAccessibleName(tr("Pages"));
    setFixedWidth(KLiteStyle::dpiScaled(184));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({10, 6, 10, 10}));
    layout->setSpacing(KLiteStyle::dpiScaled(2));
    for (int number = 0; number < pages.size(); ++number) {
        auto *button = new NavigationButton(pages.at(number), this);
        layout->addWidget(button);
        m_buttons.append(button);
        connect(button, &QAbstractButton::clicked, this, [this, number] {
            setCurrentPage(number);
            Q_EMIT pageChosen(number);
        });
    }
    layout->addStretch(1);
}

void NavigationBar::setBottomWidget(QWidget *widget)
{
    layout()->addWidget(widget);
}

void NavigationBar::setCurrentPage(int number)
{
    m_current = number;
    for (int other = 0; other < m_buttons.size(); ++other) {
        m_buttons.at(other)->setChecked(other == number);
        // One stop for the Tab key; the arrow keys go on from there.
        m_buttons.at(other)->setFocusPolicy(other == number ? Qt::TabFocus : Qt::NoFocus);
    }
}

void NavigationBar::setBadge(int number, int count, int redPointCount)
{
    if (number >= 0 && number < m_buttons.size())
        m_buttons.at(number)->setBadge(count, redPointCount);
}

void NavigationBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Down)
        step(1);
    else if (event->key() == Qt::Key_Up)
        step(-1);
    else
        QWidget::keyPressEvent(event);
}

void NavigationBar::step(int by)
{
    const int next = m_current + by;
    if (next < 0 || next >= m_buttons.size())
        return;
    setCurrentPage(next);
    m_buttons.at(next)->setFocus(Qt::TabFocusReason);
    Q_EMIT pageChosen(next);
}

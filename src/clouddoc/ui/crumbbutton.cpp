#include "clouddoc/ui/crumbbutton.h"

#include "clouddoc/ui/clouddrag.h"
#include "klitestyle.h"
#include "kskin.h"
#include "widgets/focusring.h"
#include "widgets/nametext.h"
#include "widgets/rowpaint.h"

#include <QDragEnterEvent>
#include <QPainter>

namespace {
constexpr int SidePadding = 6;
constexpr int Height = 32;
} // namespace

CrumbButton::CrumbButton(const QString &folderId, const QString &name, QWidget *parent)
    : QAbstractButton(parent), m_folderId(folderId)
{
    setText(zel::plainLine(name));
    setShortcut({}); // of the folder "R&D"
    setAccessibleName(text());
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAcceptDrops(!folderId.isNull());
}

void CrumbButton::setLast(bool last)
{
    m_last = last;
    QFont wanted = parentWidget()->font();
    wanted.setWeight(last ? QFont::DemiBold : QFont::Normal);
    setFont(wanted);
    setAcceptDrops(!last && !m_folderId.isNull());
    setAccessibleDescription(last ? tr("The folder that is shown") : QString());
}

QSize CrumbButton::sizeHint() const
{
    const int width = fontMetrics().horizontalAdvance(text()) + 2 + KLiteStyle::dpiScaled(2 * SidePadding);
    return {width, KLiteStyle::dpiScaled(Height)};
}

bool CrumbButton::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void CrumbButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect ground = rect().adjusted(0, 1, 0, -1);
    const bool active = underMouse() || isDown();
    if (m_dropTarget)
        zel::paintDropGround(&painter, ground);
    else if (active && !m_last)
        zel::paintButtonVeil(&painter, ground, isDown());
    const bool strong = m_last || active || m_dropTarget;
    painter.setPen(KSkin::color(strong ? KSkin::Color::Text : KSkin::Color::TextSecondary));
    const int padding = KLiteStyle::dpiScaled(SidePadding);
    const QRect room = rect().adjusted(padding, 0, -padding, 0);
    zel::paintTextLine(
        &painter, room, fontMetrics(), fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
    zel::paintFocusRing(&painter, this, ground, KLiteStyle::dpiScaledF(4));
}

void CrumbButton::dragEnterEvent(QDragEnterEvent *event)
{
    const bool taken = zel::clouddoc::acceptDrag(event, m_folderId);
    setDropTarget(taken);
    if (!taken)
        event->ignore();
}

void CrumbButton::dragMoveEvent(QDragMoveEvent *event)
{
    event->setAccepted(zel::clouddoc::acceptDrag(event, m_folderId));
}

void CrumbButton::dragLeaveEvent(QDragLeaveEvent *)
{
    setDropTarget(false);
}

void CrumbButton::dropEvent(QDropEvent *event)
{
    setDropTarget(false);
    if (!zel::clouddoc::acceptDrag(event, m_folderId))
        return event->ignore();
    const zel::clouddoc::CarriedItems items = zel::clouddoc::itemsOf(event->mimeData());
    if (items.ids.isEmpty())
        Q_EMIT filesDropped(m_folderId, zel::clouddoc::localFiles(event->mimeData()));
    else
        Q_EMIT itemsDropped(m_folderId, items.ids, items.folderId);
}

void CrumbButton::setDropTarget(bool target)
{
    m_dropTarget = target;
    update();
}

#include "recentfile/ui/recentfilterbar.h"

#include "klitestyle.h"
#include "widgets/chip.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QWheelEvent>

using namespace zel::recent;

namespace {

struct ChipKinds
{
    DocumentKind named; ///< whose name the chip carries
    DocumentKinds kinds;
};

const ChipKinds Chips[] = {
    {DocumentKind::Text, DocumentKind::Text},
    {DocumentKind::Sheet, DocumentKind::Sheet},
    {DocumentKind::Slides, DocumentKind::Slides},
    {DocumentKind::Pdf, DocumentKind::Pdf},
    {DocumentKind::Picture, DocumentKind::Picture},
    {DocumentKind::Other, DocumentKind::Media | DocumentKind::Archive | DocumentKind::Other},
};

} // namespace

RecentFilterBar::RecentFilterBar(QWidget *parent)
    : QScrollArea(parent), m_group(new QButtonGroup(this)), m_row(nullptr)
{
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Kind of document"));
    viewport()->setAutoFillBackground(false);

    auto *content = new QWidget(this);
    content->setAutoFillBackground(false);
    m_row = new QHBoxLayout(content);
    m_row->setContentsMargins(KLiteStyle::dpiScaledMargins({24, 2, 24, 6}));
    m_row->setSpacing(KLiteStyle::dpiScaled(8));
    setWidget(content);
    content->setAutoFillBackground(false); // which setWidget() switches on
    makeChips();
    m_row->addStretch(1);
    m_group->setExclusive(true);
    connect(m_group, &QButtonGroup::idToggled, this, [this](int, bool checked) {
        if (checked)
            Q_EMIT kindsChanged(kinds());
    });
}

void RecentFilterBar::makeChips()
{
    const auto add = [this](const QString &text, int id) {
        auto *chip = new Chip(text, widget());
        chip->setAutoExclusive(true); // so that it calls itself one of several, as the group makes it
        chip->installEventFilter(this);
        m_group->addButton(chip, id);
        m_row->addWidget(chip);
        return chip;
    };
    add(tr("All"), 0)->setChecked(true);
    for (const ChipKinds &each : Chips)
        add(documentKindName(each.named), int(each.kinds));
}

DocumentKinds RecentFilterBar::kinds() const
{
    return DocumentKinds(m_group->checkedId());
}

void RecentFilterBar::chooseAll()
{
    m_group->button(0)->setChecked(true);
}

QSize RecentFilterBar::sizeHint() const
{
    return widget()->sizeHint();
}

QSize RecentFilterBar::minimumSizeHint() const
{
    return {0, widget()->sizeHint().height()};
}

void RecentFilterBar::wheelEvent(QWheelEvent *event)
{
    const int delta = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - delta / 2);
    event->accept();
}

bool RecentFilterBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        ensureWidgetVisible(static_cast<QWidget *>(watched), KLiteStyle::dpiScaled(24), 0);
    return QScrollArea::eventFilter(watched, event);
}

void RecentFilterBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        setAccessibleName(tr("Kind of document"));
        m_group->button(0)->setText(tr("All"));
        for (const ChipKinds &each : Chips)
            m_group->button(int(each.kinds))->setText(documentKindName(each.named));
    }
    QScrollArea::changeEvent(event);
}

#include "lists/ui/filterbar.h"

#include "klitestyle.h"
#include "klook.h"
#include "widgets/chip.h"
#include "widgets/contentcolumn.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QWheelEvent>

namespace look = zel::look;

FilterBar::FilterBar(const QString &name, QWidget *parent)
    : QScrollArea(parent), m_group(new QButtonGroup(this)), m_row(nullptr)
{
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(name);
    viewport()->setAutoFillBackground(false);

    auto *content = new QWidget(this);
    m_row = new QHBoxLayout(content);
    m_row->setSpacing(KLiteStyle::dpiScaled(look::SpaceS));
    m_row->addStretch(1);
    zel::keepInContentColumn(content, {look::SpaceXL, 2, look::SpaceXL, 6});
    setWidget(content);
    content->setAutoFillBackground(false); // which setWidget() switches on
    m_group->setExclusive(true);
    connect(m_group, &QButtonGroup::idToggled, this, [this](int id, bool checked) {
        if (checked)
            Q_EMIT chipChosen(id);
    });
}

void FilterBar::addChip(int id, const QString &text)
{
    auto *chip = new Chip(text, widget());
    chip->setAutoExclusive(true); // so that it calls itself one of several, as the group makes it
    chip->installEventFilter(this);
    if (m_group->buttons().isEmpty())
        chip->setChecked(true);
    m_group->addButton(chip, id);
    m_row->insertWidget(m_row->count() - 1, chip);
}

int FilterBar::chosen() const
{
    return m_group->checkedId();
}

void FilterBar::chooseFirst()
{
    m_group->buttons().constFirst()->setChecked(true);
}

QSize FilterBar::sizeHint() const
{
    return widget()->sizeHint();
}

QSize FilterBar::minimumSizeHint() const
{
    return {0, widget()->sizeHint().height()};
}

void FilterBar::wheelEvent(QWheelEvent *event)
{
    const int delta = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - delta / 2);
    event->accept();
}

bool FilterBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        ensureWidgetVisible(static_cast<QWidget *>(watched), KLiteStyle::dpiScaled(look::SpaceXL), 0);
    return QScrollArea::eventFilter(watched, event);
}

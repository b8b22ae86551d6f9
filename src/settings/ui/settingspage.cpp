#include "settings/ui/settingspage.h"

#include "klitestyle.h"
#include "klook.h"
#include "settings/ui/settingscard.h"
#include "widgets/noticearea.h"
#include "widgets/noticebar.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace look = zel::look;

namespace {

constexpr int MostWidth = 680; // longer lines are hard to read

QLabel *paragraph(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(1); // long words must not widen the page
    return label;
}

QLabel *heading(const QString &text, look::Type type, QWidget *parent)
{
    QLabel *label = paragraph(text, parent);
    label->setFont(look::font(type));
    return label;
}

} // namespace

SettingsPage::SettingsPage(const QString &title, QWidget *parent)
    : QWidget(parent),
      m_scroller(new QScrollArea(this)),
      m_content(new QWidget),
      m_body(new QVBoxLayout(m_content)),
      m_cards(new QVBoxLayout)
{
    const int side = KLiteStyle::dpiScaled(look::SpaceXL);
    auto *top = new QVBoxLayout;
    top->setContentsMargins(
        side, KLiteStyle::dpiScaled(look::SpaceL + look::SpaceXS), side, KLiteStyle::dpiScaled(look::SpaceM));
    top->addWidget(heading(title, look::Type::Title, this));

    m_body->setContentsMargins(side, 0, side, side);
    m_cards->setSpacing(KLiteStyle::dpiScaled(look::SpaceS));
    m_body->addLayout(m_cards);
    m_body->addStretch(0);
    m_content->setMaximumWidth(KLiteStyle::dpiScaled(MostWidth) + 2 * side);
    m_scroller->setFrameShape(QFrame::NoFrame);
    m_scroller->setFocusPolicy(Qt::NoFocus); // the controls inside bring themselves into view
    m_scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroller->setWidgetResizable(true);
    m_scroller->setWidget(m_content);

    followScrollBar();
    addNotice();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(top);
    layout->addWidget(m_scroller, 1);
}

// The scroll bar stands in the margin, so that nothing moves when it comes.
// A click beside the controls ends what one of them waits for.
void SettingsPage::mousePressEvent(QMouseEvent *event)
{
    QWidget *focused = window()->focusWidget();
    if (focused && isAncestorOf(focused))
        focused->clearFocus();
    QWidget::mousePressEvent(event);
}

void SettingsPage::followScrollBar()
{
    const QScrollBar *bar = m_scroller->verticalScrollBar();
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int last) {
        QMargins margins = m_body->contentsMargins();
        margins.setRight(margins.left() - (last > 0 ? bar->sizeHint().width() : 0));
        m_body->setContentsMargins(margins);
    });
}

// Whatever it stands over can be scrolled out from under it.
void SettingsPage::addNotice()
{
    auto *area = new NoticeArea(this, m_scroller);
    m_notice = area->addBar();
    const int bottom = m_body->contentsMargins().bottom();
    connect(area, &NoticeArea::coverChanged, this, [this, bottom](int cover) {
        QMargins margins = m_body->contentsMargins();
        margins.setBottom(qMax(bottom, cover));
        m_body->setContentsMargins(margins);
    });
}

// A page that was made just now is laid out later.
void SettingsPage::lead(QWidget *control)
{
    control->setFocus(Qt::TabFocusReason);
    QMetaObject::invokeMethod(
        control, [this, control] { m_scroller->ensureWidgetVisible(control); }, Qt::QueuedConnection);
}

QWidget *SettingsPage::control(const QString &) const
{
    return nullptr;
}

SettingsCard *SettingsPage::addCard(const QString &title, const QString &text)
{
    if (m_cards->count() > 0)
        m_cards->addSpacing(KLiteStyle::dpiScaled(look::SpaceM));
    if (!title.isEmpty())
        m_cards->addWidget(heading(title, look::Type::Subtitle, m_content));
    if (!text.isEmpty())
        addText(text);
    auto *card = new SettingsCard(m_content);
    card->setAccessibleName(title);
    m_cards->addWidget(card);
    return card;
}

QLabel *SettingsPage::addText(const QString &text)
{
    QLabel *label = paragraph(text, m_content);
    label->setForegroundRole(QPalette::PlaceholderText);
    m_cards->addWidget(label);
    return label;
}

void SettingsPage::addWidget(QWidget *widget)
{
    m_cards->addWidget(widget);
}

void SettingsPage::addFiller(QWidget *widget)
{
    m_content->setMaximumWidth(QWIDGETSIZE_MAX);
    m_body->insertWidget(m_body->indexOf(m_cards) + 1, widget, 1);
}

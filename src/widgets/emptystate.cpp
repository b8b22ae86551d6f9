#include "widgets/emptystate.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/svgicon.h"

#include <QFocusEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace look = zel::look;

EmptyStateWidget::EmptyStateWidget(
    const QString &illustration, const QString &title, const QString &text, QWidget *parent)
    : QWidget(parent),
      m_illustration(illustration),
      m_picture(new QLabel(this)),
      m_title(new QLabel(this)),
      m_text(new QLabel(this)),
      m_actions(new QHBoxLayout)
{
    m_picture->setAlignment(Qt::AlignCenter);
    m_title->setFont(look::font(look::Type::Title, font()));
    m_title->setAlignment(Qt::AlignCenter);
    m_title->setWordWrap(true);
    m_title->setMinimumWidth(1);
    m_title->setFocusPolicy(Qt::ClickFocus);
    m_text->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_text->setWordWrap(true);
    m_text->setForegroundRole(QPalette::PlaceholderText);
    m_text->setMaximumWidth(KLiteStyle::dpiScaled(380));
    m_text->setMinimumWidth(KLiteStyle::dpiScaled(120)); // where large texts leave no more

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(KLiteStyle::dpiScaled(look::SpaceS));
    layout->addStretch(2);
    layout->addWidget(m_picture);
    layout->addWidget(m_title);
    auto *textRow = new QHBoxLayout; // an aligned label would not get the height that its lines need
    textRow->addStretch(1);
    textRow->addWidget(m_text, 100);
    textRow->addStretch(1);
    layout->addLayout(textRow);
    layout->addSpacing(KLiteStyle::dpiScaled(look::SpaceS));
    m_actions->setAlignment(Qt::AlignCenter);
    layout->addLayout(m_actions);
    layout->addStretch(3);
    setTexts(title, text);
    updatePicture();
}

QPushButton *EmptyStateWidget::addAction(const QString &text)
{
    auto *button = new QPushButton(text, this);
    m_actions->addWidget(button);
    return button;
}

void EmptyStateWidget::setTexts(const QString &title, const QString &text)
{
    m_title->setText(title);
    m_text->setText(text);
}

void EmptyStateWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        updatePicture();
    QWidget::changeEvent(event);
}

void EmptyStateWidget::focusInEvent(QFocusEvent *event)
{
    handFocusOn(event->reason());
}

void EmptyStateWidget::mousePressEvent(QMouseEvent *)
{
    handFocusOn(Qt::MouseFocusReason);
}

void EmptyStateWidget::handFocusOn(Qt::FocusReason reason)
{
    QLayoutItem *first = m_actions->itemAt(0);
    QWidget *target = first && first->widget()->isVisible() ? first->widget() : m_title;
    target->setFocus(reason);
}

void EmptyStateWidget::updatePicture()
{
    m_picture->setPixmap(zel::tintedPixmap(m_illustration, KLiteStyle::dpiScaledSize({160, 120}),
        devicePixelRatioF(), KSkin::color(KSkin::Color::TextSecondary)));
}

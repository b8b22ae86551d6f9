#include "widgets/emptystate.h"

#include "klitestyle.h"
#include "kskin.h"
#include "widgets/svgicon.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

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
    QFont titleFont = font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.35);
    titleFont.setWeight(QFont::DemiBold);
    m_title->setFont(titleFont);
    m_title->setAlignment(Qt::AlignCenter);
    m_text->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_text->setWordWrap(true);
    m_text->setForegroundRole(QPalette::PlaceholderText);
    m_text->setMaximumWidth(KLiteStyle::dpiScaled(380));
    m_text->setMinimumWidth(KLiteStyle::dpiScaled(280));

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(KLiteStyle::dpiScaled(8));
    layout->addStretch(2);
    layout->addWidget(m_picture);
    layout->addWidget(m_title);
    auto *textRow = new QHBoxLayout; // an aligned label would not get the height that its lines need
    textRow->addStretch(1);
    textRow->addWidget(m_text, 100);
    textRow->addStretch(1);
    layout->addLayout(textRow);
    layout->addSpacing(KLiteStyle::dpiScaled(8));
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

void EmptyStateWidget::updatePicture()
{
    m_picture->setPixmap(zel::tintedPixmap(m_illustration, KLiteStyle::dpiScaledSize({160, 120}),
        devicePixelRatioF(), KSkin::color(KSkin::Color::TextSecondary)));
}

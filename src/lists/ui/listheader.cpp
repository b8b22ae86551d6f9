#include "lists/ui/listheader.h"

#include "klitestyle.h"
#include "klook.h"
#include "widgets/contentcolumn.h"
#include "widgets/iconbutton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMenu>

namespace look = zel::look;

ListHeader::ListHeader(const QString &title, QWidget *parent)
    : QWidget(parent), m_count(new QLabel(this)), m_texts(new QHBoxLayout), m_buttons(new QHBoxLayout)
{
    auto *name = new QLabel(title, this);
    name->setObjectName(QStringLiteral("text-title"));
    name->setFont(look::font(look::Type::Title, font()));
    m_count->setObjectName(QStringLiteral("text-count"));
    m_count->setForegroundRole(QPalette::PlaceholderText);
    m_count->hide();
    m_texts->setSpacing(KLiteStyle::dpiScaled(10));
    m_buttons->setSpacing(KLiteStyle::dpiScaled(2));
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(m_texts);
    layout->addStretch(1);
    layout->addLayout(m_buttons);
    addText(name);
    addText(m_count);
    zel::keepInContentColumn(this, {look::SpaceXL, 18, look::SpaceL, 6});
}

void ListHeader::addText(QWidget *text)
{
    m_texts->addWidget(text, 0, Qt::AlignBaseline);
}

void ListHeader::setCount(int count, const QString &name)
{
    const QString number = QLocale().toString(count);
    m_count->setText(number);
    m_count->setAccessibleName(name.arg(number));
    m_count->setVisible(count >= 0);
}

void ListHeader::setCountText(const QString &text)
{
    m_count->setText(text);
    m_count->setAccessibleName(text);
}

IconButton *ListHeader::addMenuButton(const QString &icon, const QString &name, QMenu *menu)
{
    auto *button = new IconButton(icon, name, this);
    m_buttons->addWidget(button);
    connect(button, &QAbstractButton::clicked, menu, [button, menu] {
        const QPoint below = button->mapToGlobal(QPoint(button->width(), button->height()));
        menu->popup(below - QPoint(menu->sizeHint().width(), 0));
    });
    return button;
}

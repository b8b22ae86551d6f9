#include "clouddoc/ui/cloudstatusline.h"

#include "base/sizetext.h"
#include "klitestyle.h"
#include "klook.h"
#include "widgets/contentcolumn.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>

static constexpr int RoomForSpace = 420;

CloudStatusLine::CloudStatusLine(QWidget *parent)
    : QWidget(parent), m_counts(new QLabel(this)), m_space(new QLabel(this))
{
    setFonts();
    for (QLabel *label : {m_counts, m_space}) {
        label->setForegroundRole(QPalette::PlaceholderText);
        label->setTextFormat(Qt::PlainText);
    }
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_counts, 1);
    layout->addWidget(m_space);
    zel::keepInContentColumn(this, {zel::look::SpaceXL, 6, zel::look::SpaceXL, 8});
}

void CloudStatusLine::setFonts()
{
    const QFont small = zel::look::font(zel::look::Type::Caption, font());
    m_counts->setFont(small);
    m_space->setFont(small);
}

void CloudStatusLine::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setFonts();
}

void CloudStatusLine::setCounts(int shown, int selected, qint64 selectedBytes)
{
    QString text = selected > 0
        ? tr("%1 of %2 selected").arg(QLocale().toString(selected), QLocale().toString(shown))
        : shown > 0 ? tr("%Ln item(s)", nullptr, shown)
                    : QString();
    if (selected > 0 && selectedBytes > 0)
        text += QStringLiteral(" · ") + zel::sizeText(selectedBytes);
    m_counts->setText(text);
}

void CloudStatusLine::setSpace(qint64 used, qint64 total)
{
    m_space->setText(zel::spaceText(used, total));
}

void CloudStatusLine::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_space->setVisible(width() >= KLiteStyle::dpiScaled(RoomForSpace));
}

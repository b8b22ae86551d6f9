#include "widgets/contentcolumn.h"

#include "klitestyle.h"
#include "klook.h"

#include <QEvent>
#include <QLayout>
#include <QWidget>

namespace zel {
namespace {

class ColumnKeeper : public QObject
{
public:
    ColumnKeeper(QWidget *strip, const QMargins &margins) : QObject(strip), m_strip(strip), m_margins(margins)
    {
        strip->installEventFilter(this);
        place();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
            place();
        return QObject::eventFilter(watched, event);
    }

private:
    // What is beside the column is no reason to keep a window wide.
    void place()
    {
        const int inset = contentInset(m_strip->width());
        QLayout *layout = m_strip->layout();
        layout->setContentsMargins(KLiteStyle::dpiScaledMargins(m_margins) + QMargins(inset, 0, inset, 0));
        m_strip->setMinimumWidth(layout->minimumSize().width() - 2 * inset);
    }

    QWidget *m_strip;
    QMargins m_margins;
};

} // namespace

int contentInset(int pageWidth)
{
    return qMax(0, (pageWidth - KLiteStyle::dpiScaled(look::ContentWidth)) / 2);
}

QRect contentRect(const QRect &page)
{
    const int inset = contentInset(page.width());
    return page.adjusted(inset, 0, -inset, 0);
}

void keepInContentColumn(QWidget *strip, const QMargins &margins)
{
    new ColumnKeeper(strip, margins);
}

} // namespace zel

#include "widgets/balancedlabel.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int Wrapped = int(Qt::TextWordWrap) | int(Qt::AlignLeft);

// "?" or "to" goes with the word before it.
QString withLastWordJoined(QString text)
{
    constexpr int Short = 2;
    const int blank = text.lastIndexOf(QLatin1Char(' '));
    if (blank > 0 && text.size() - blank - 1 <= Short)
        text[blank] = QChar::Nbsp;
    return text;
}

QSize sizeAt(int width, const QString &text, const QFontMetrics &metrics)
{
    return metrics.boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), Wrapped, text).size();
}

} // namespace

BalancedLabel::BalancedLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent), m_shown(withLastWordJoined(text))
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

int BalancedLabel::balancedWidth(const QString &text, const QFontMetrics &metrics, int width)
{
    const int height = sizeAt(width, text, metrics).height();
    int tooSmall = 0;
    int enough = width;
    while (enough - tooSmall > 1) {
        const int middle = (tooSmall + enough) / 2;
        const QSize needed = sizeAt(middle, text, metrics);
        (needed.height() <= height && needed.width() <= middle ? enough : tooSmall) = middle;
    }
    return enough;
}

int BalancedLabel::heightForWidth(int width) const
{
    return sizeAt(width, m_shown, fontMetrics()).height();
}

QSize BalancedLabel::minimumSizeHint() const
{
    return {sizeAt(1, m_shown, fontMetrics()).width(), fontMetrics().height()};
}

void BalancedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QRect lines = contentsRect();
    lines.setWidth(balancedWidth(m_shown, fontMetrics(), lines.width()));
    style()->drawItemText(&painter, QStyle::visualRect(layoutDirection(), contentsRect(), lines), Wrapped,
        palette(), isEnabled(), m_shown, foregroundRole());
}

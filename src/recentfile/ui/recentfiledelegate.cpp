#include "recentfile/ui/recentfiledelegate.h"

#include "base/sizetext.h"
#include "recentfile/recentfilemodel.h"

#include <QAbstractItemView>
#include <QDir>
#include <QHelpEvent>
#include <QLocale>
#include <QToolTip>

using namespace zel::recent;
using Model = ZelBoxRecentFileModel;

namespace {

RecentRowOption rowOption(const QStyleOptionViewItem &option)
{
    const auto *ours = qstyleoption_cast<const RecentRowOption *>(&option);
    return ours ? *ours : RecentRowOption(option);
}

} // namespace

ZelBoxRecentFileDelegate::ZelBoxRecentFileDelegate(QObject *parent) : QStyledItemDelegate(parent)
{
    retranslate();
}

void ZelBoxRecentFileDelegate::retranslate()
{
    m_texts = {
        {QStringLiteral("text-name"), tr("Name")},
        {QStringLiteral("text-time"), tr("Last used")},
        {QStringLiteral("text-notify-new"), tr("New")},
        {QStringLiteral("text-notify-modify"), tr("Modify")},
    };
}

const RecentRowFonts &ZelBoxRecentFileDelegate::fonts(const QFont &font) const
{
    if (!m_fonts || m_fonts->name != font)
        m_fonts.emplace(font);
    return *m_fonts;
}

QSize ZelBoxRecentFileDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    const RecentCellMetrics &metrics = fonts(option.font).cell;
    return {metrics.leastNameWidth * 2, metrics.rowHeight};
}

RecentCell ZelBoxRecentFileDelegate::cell(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const RecentRowOption ours = rowOption(option);
    return RecentRow::of(index, ours.detail, m_texts).fit(ours.rect, fonts(ours.font), ours.buttons);
}

void ZelBoxRecentFileDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const RecentRowOption ours = rowOption(option);
    RecentRow row = RecentRow::of(index, ours.detail, m_texts);
    const RecentRowFonts &rowFonts = fonts(ours.font);
    const RecentCell cell = row.fit(ours.rect, rowFonts, ours.buttons);
    paintRow(painter, row, cell, rowFonts, ours);
}

QString ZelBoxRecentFileDelegate::toolTip(const QModelIndex &index) const
{
    const QString path = QDir::toNativeSeparators(index.data(Model::PathRole).toString());
    const auto labelled = [](const QString &label, const QString &text) {
        return tr("%1: %2", "label and value").arg(label, text);
    };
    QStringList lines;
    lines << plainLine(path.isEmpty()
            ? labelled(m_texts.value(QStringLiteral("text-name")), index.data(Model::NameRole).toString())
            : path);
    lines << labelled(m_texts.value(QStringLiteral("text-time")),
        QLocale().toString(index.data(Model::LastAccessRole).toDateTime(), QLocale::LongFormat));
    if (const QString size = zel::sizeText(index.data(Model::SizeRole).toLongLong()); !size.isEmpty())
        lines << labelled(tr("Size"), size);
    if (const QString device = index.data(Model::DeviceNameRole).toString(); !device.isEmpty())
        lines << labelled(tr("Device"), plainLine(device));
    for (QString &line : lines)
        line = line.toHtmlEscaped();
    return QStringLiteral("<p style='white-space:pre-wrap'>") + lines.join(QStringLiteral("<br>"))
        + QStringLiteral("</p>");
}

bool ZelBoxRecentFileDelegate::helpEvent(
    QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const RecentCell cell = this->cell(option, index);
    const RecentCell::Button button = cell.buttonAt(event->pos());
    const QString text = button == RecentCell::Button::Share ? tr("Share")
        : button == RecentCell::Button::More                 ? tr("More")
                                                             : toolTip(index);
    const QRect area = button == RecentCell::Button::None ? option.rect : cell.rectOf(button);
    QToolTip::showText(event->globalPos(), text, view->viewport(), area);
    return true;
}

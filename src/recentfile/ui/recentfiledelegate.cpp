#include "recentfile/ui/recentfiledelegate.h"

#include "base/sizetext.h"
#include "base/timetext.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/ui/recentactiontable.h"
#include "widgets/nametext.h"

#include <QDir>

using Model = ZelBoxRecentFileModel;
using zel::plainLine;

ZelBoxRecentFileDelegate::ZelBoxRecentFileDelegate(QObject *parent) : RowDelegate(parent)
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

RecentRow ZelBoxRecentFileDelegate::rowOf(const QModelIndex &index) const
{
    return RecentRow::of(index, m_detail, m_texts);
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
        zel::longTimeText(index.data(Model::LastAccessRole).toDateTime()));
    if (const QString size = zel::sizeText(index.data(Model::SizeRole).toLongLong()); !size.isEmpty())
        lines << labelled(tr("Size"), size);
    if (const QString device = index.data(Model::DeviceNameRole).toString(); !device.isEmpty())
        lines << labelled(tr("Device"), plainLine(device));
    for (QString &line : lines)
        line = line.toHtmlEscaped();
    return QStringLiteral("<p style='white-space:pre-wrap'>") + lines.join(QStringLiteral("<br>"))
        + QStringLiteral("</p>");
}

QString ZelBoxRecentFileDelegate::buttonName(const QModelIndex &, int button) const
{
    return button == RecentButton::Share ? recentActionTable().explained(int(RecentCommand::Share))
                                         : tr("More");
}

#pragma once

#include "recentfile/ui/recentcell.h"

#include <QStyledItemDelegate>

struct RecentFileInfo;

/// Paints a row of the recent list: icon, name, badge, folder, time. GUI thread.
class ZelBoxRecentFileDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(
        QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// Tool tip: the full path and the full date.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;

    static QFont smallFont(const QFont &font);        ///< of folder, time, badge and group headers
    static QString toolTip(const QModelIndex &index); ///< as rich text, safe for any file name

private:
    struct Row;
    void paintTexts(QPainter *painter, const RecentCell &cell, const Row &row) const;
};

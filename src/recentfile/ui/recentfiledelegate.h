#pragma once

#include "recentfile/ui/recentrowpainter.h"

#include <QStyledItemDelegate>
#include <optional>

/// Shows a row of the recent list: icon or thumbnail, name, pin, badge, folder, time or buttons. GUI thread.
/// Understands RecentRowOption; with a plain option a row has no buttons.
class ZelBoxRecentFileDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileDelegate(QObject *parent = nullptr);

    void paint(
        QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// Tool tips: of a button its name, else the full path and what else is known of the file.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;

    /// Where the row has what, as it is painted with the same option.
    RecentCell cell(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    const RecentRowFonts &fonts(const QFont &font) const;

    /// Style key -> translated text: the badges "text-notify-new" and "text-notify-modify", and what name and
    /// time of a row are called, "text-name" and "text-time".
    const RecentRow::Texts &texts() const { return m_texts; }
    void retranslate(); ///< reads the texts again after a change of language

    QString toolTip(const QModelIndex &index) const; ///< as rich text, safe for any file name

private:
    RecentRow::Texts m_texts;
    mutable std::optional<RecentRowFonts> m_fonts; // of the font that was last asked for
};

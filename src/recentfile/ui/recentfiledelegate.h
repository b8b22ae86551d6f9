#pragma once

#include "lists/ui/rowdelegate.h"
#include "recentfile/ui/recentrowtexts.h"

/// Shows a row of the recent list: icon or thumbnail, name, pin, badge, folder, time or buttons. GUI thread.
class ZelBoxRecentFileDelegate : public RowDelegate<RecentRow>
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileDelegate(QObject *parent = nullptr);

    void setShownDetail(RecentDetail detail) { m_detail = detail; } ///< the list is to be painted anew

    /// Style key -> translated text: the badges "text-notify-new" and "text-notify-modify", and what name and
    /// time of a row are called, "text-name" and "text-time".
    const RecentRow::Texts &texts() const { return m_texts; }
    void retranslate(); ///< reads the texts again after a change of language

    QString buttonName(const QModelIndex &index, int button) const override;
    /// The full path, and what else is known of the file.
    QString toolTip(const QModelIndex &index) const override;

protected:
    RecentRow rowOf(const QModelIndex &index) const override;

private:
    RecentRow::Texts m_texts;
    RecentDetail m_detail = RecentDetail::Time;
};

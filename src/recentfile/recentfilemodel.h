#pragma once

#include "recentfile/recentroles.h"
#include "recentfile/recordsbytime.h"
#include "recentfile/timegroups.h"

#include <QAbstractListModel>
#include <QTimer>

/// Rows of the Recent page, newest first, with their seven time groups. GUI thread; owns copies of the
/// records. Texts are made when asked for, so loading costs next to nothing per row. groups() is up to date
/// whenever a signal about rows is emitted. Signals of one change: the row signals, groupsChanged(),
/// rowCountChanged().
class ZelBoxRecentFileModel final : public QAbstractListModel, public RecentRoles
{
    Q_OBJECT
public:
    /// What a pass over reported ids did.
    struct MarkResult
    {
        bool changed = false;
        QStringList unknownIds; ///< ids without a row
    };

    explicit ZelBoxRecentFileModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(
        const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override; ///< UnreadRole
    bool removeRows(int row, int count, const QModelIndex &parent = {}) override;

    /// Replaces all rows: one removal, one insertion.
    void setRecords(const RecordInfoList &records);
    void removeAll(); ///< tells rowCountChanged(0) also when there was nothing
    /// Puts the record where its time belongs; one whose id is there already is updated instead. Returns its
    /// row, -1 for a record without id.
    int addRecord(const RecentFileInfo &record);
    /// Takes over a changed record, moving its row when its time says so. False when there is no such row.
    /// Unread marks of records with a roaming id are kept by the store, so theirs is taken over; any other
    /// keeps the mark that markUnread() set.
    bool updateRecord(const RecentFileInfo &record);
    bool removeRecord(const QString &id);

    int rowOf(const QString &id) const { return m_rows.rowOf(id); } ///< -1 when there is none
    const RecentFileInfo &record(int row) const { return m_rows.at(row); }
    QVariant recordData(const RecentFileInfo &record, int role) const; ///< data() of the record's row

    /// Handles are for who keeps rows in an order of its own: a record's handle is the same number while it
    /// has a row, wherever that moves.
    zel::Handle handleAt(int row) const { return m_rows.handleAt(row); }
    int handleCount() const { return m_rows.handleCount(); } ///< above every handle in use
    const RecentFileInfo &recordIn(zel::Handle handle) const { return m_rows.withHandle(handle); }
    int rowOfHandle(zel::Handle handle) const
    {
        return m_rows.rowOfHandle(handle);
    } ///< O(log n); of one in use

    /// Marks the rows whose record id, or else roaming id or cloud file id, is in `messages`; unread ones
    /// keep their mark.
    MarkResult markUnread(const ZELBOX_ROAMING_MSGLIST &messages, UnreadMark mark);
    bool clearUnread(); ///< true when a row was unread
    int unreadCount() const { return m_unread; }
    QHash<QString, int> unreadMarks() const; ///< id -> mark of the unread rows

    const zel::recent::TimeGroups &groups() const { return m_groups; }
    const zel::recent::TimeGroupEdges &groupEdges() const { return m_edges; }
    /// Regroups and lets every row tell its time anew when the day or the time zone is another one by now.
    void refreshDay();
    void retranslate(); ///< the same for another language

Q_SIGNALS:
    void rowCountChanged(int count);
    void groupsChanged();

private:
    void setUnread(int row, UnreadMark mark);
    void markRoaming(const ZELBOX_ROAMING_MSGLIST &messages, UnreadMark mark, MarkResult &result);
    void regroup();
    void finishChange();
    void armDayTimer();

    zel::recent::RecordsByTime m_rows;
    zel::recent::TimeGroupEdges m_edges;
    zel::recent::TimeGroups m_groups;
    int m_unread = 0;
    QTimer m_dayTimer; // one wake a day, only while there are rows; knows nothing of sleep and clock changes
};

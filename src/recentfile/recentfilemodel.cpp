#include "recentfile/recentfilemodel.h"

#include "base/clock.h"

#include <QSet>

using namespace zel::recent;

namespace {

int unreadIn(const RecentFileInfo &record)
{
    return record.unread == ZelBoxRecentFileModel::NotUnread ? 0 : 1;
}

} // namespace

ZelBoxRecentFileModel::ZelBoxRecentFileModel(QObject *parent)
    : QAbstractListModel(parent), m_edges(timeGroupEdges(zel::now().date()))
{
    regroup();
    m_dayTimer.setSingleShot(true);
    connect(&m_dayTimer, &QTimer::timeout, this, &ZelBoxRecentFileModel::refreshDay);
}

int ZelBoxRecentFileModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant ZelBoxRecentFileModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    return recordData(m_rows.at(index.row()), role);
}

QVariant ZelBoxRecentFileModel::recordData(const RecentFileInfo &record, int role) const
{
    return role == GroupKindRole ? timeGroupKind(m_edges, record.lastAccess) : roleValue(record, role);
}

bool ZelBoxRecentFileModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != UnreadRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    setUnread(index.row(), UnreadMark(value.toInt()));
    return true;
}

bool ZelBoxRecentFileModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || count < 1 || row > m_rows.size() - count)
        return false;
    beginRemoveRows({}, row, row + count - 1);
    for (int i = row; m_unread > 0 && i < row + count; ++i)
        m_unread -= unreadIn(m_rows.at(i));
    m_rows.remove(row, count);
    regroup();
    endRemoveRows();
    finishChange();
    return true;
}

void ZelBoxRecentFileModel::removeAll()
{
    if (!removeRows(0, m_rows.size()))
        finishChange();
}

void ZelBoxRecentFileModel::setRecords(const RecordInfoList &records)
{
    removeAll();
    RecordsByTime rows;
    rows.assign(records);
    if (rows.size() == 0)
        return;
    refreshDay();
    beginInsertRows({}, 0, rows.size() - 1);
    m_rows = std::move(rows);
    for (int i = 0; i < m_rows.size(); ++i)
        m_unread += unreadIn(m_rows.at(i));
    regroup();
    endInsertRows();
    finishChange();
}

int ZelBoxRecentFileModel::addRecord(const RecentFileInfo &record)
{
    if (record.id.isEmpty())
        return -1;
    if (updateRecord(record))
        return rowOf(record.id);
    refreshDay();
    const int row = m_rows.placeFor(record);
    beginInsertRows({}, row, row);
    m_rows.insert(row, record);
    m_unread += unreadIn(record);
    regroup();
    endInsertRows();
    finishChange();
    return row;
}

bool ZelBoxRecentFileModel::updateRecord(const RecentFileInfo &record)
{
    const int row = rowOf(record.id);
    if (row < 0)
        return false;
    RecentFileInfo next = record;
    if (next.unread == NotUnread && next.roamingId.isEmpty())
        next.unread = m_rows.at(row).unread;
    const QVector<int> roles = changedRoles(m_rows.at(row), next);
    m_unread += unreadIn(next) - unreadIn(m_rows.at(row));

    const int place = m_rows.placeFor(next);
    const bool moves = place != row && place != row + 1;
    if (moves)
        beginMoveRows({}, row, row, {}, place);
    const int newRow = m_rows.replace(row, moves ? place : row, next);
    regroup();
    if (moves)
        endMoveRows();
    if (!roles.isEmpty())
        Q_EMIT dataChanged(index(newRow), index(newRow), roles);
    if (roles.contains(LastAccessRole))
        Q_EMIT groupsChanged();
    return true;
}

bool ZelBoxRecentFileModel::removeRecord(const QString &id)
{
    const int row = rowOf(id);
    return row >= 0 && removeRows(row, 1);
}

ZelBoxRecentFileModel::MarkResult ZelBoxRecentFileModel::markUnread(
    const ZELBOX_ROAMING_MSGLIST &messages, UnreadMark mark)
{
    MarkResult result;
    ZELBOX_ROAMING_MSGLIST others;
    for (auto it = messages.cbegin(); it != messages.cend(); ++it) {
        const int row = rowOf(it.key());
        if (row < 0) {
            others.insert(it.key(), it.value());
        } else if (m_rows.at(row).unread == NotUnread) {
            setUnread(row, mark);
            result.changed = true;
        }
    }
    if (!others.isEmpty())
        markRoaming(others, mark, result);
    return result;
}

void ZelBoxRecentFileModel::markRoaming(
    const ZELBOX_ROAMING_MSGLIST &messages, UnreadMark mark, MarkResult &result)
{
    QSet<QString> found;
    for (int row = 0; row < m_rows.size(); ++row) {
        const RecentFileInfo &record = m_rows.at(row);
        if (record.roamingId.isEmpty() && record.cloudFileId == 0)
            continue;
        const QString id =
            messages.contains(record.roamingId) ? record.roamingId : QString::number(record.cloudFileId);
        if (!messages.contains(id))
            continue;
        found.insert(id);
        if (m_rows.at(row).unread == NotUnread) {
            setUnread(row, mark);
            result.changed = true;
        }
    }
    for (auto it = messages.cbegin(); it != messages.cend(); ++it) {
        if (!found.contains(it.key()))
            result.unknownIds << it.key();
    }
}

bool ZelBoxRecentFileModel::clearUnread()
{
    if (m_unread == 0)
        return false;
    for (int row = 0; row < m_rows.size(); ++row)
        setUnread(row, NotUnread);
    return true;
}

QHash<QString, int> ZelBoxRecentFileModel::unreadMarks() const
{
    QHash<QString, int> marks;
    for (int row = 0; m_unread > marks.size() && row < m_rows.size(); ++row) {
        if (unreadIn(m_rows.at(row)) != 0)
            marks.insert(m_rows.at(row).id, m_rows.at(row).unread);
    }
    return marks;
}

void ZelBoxRecentFileModel::setUnread(int row, UnreadMark mark)
{
    const int before = m_rows.at(row).unread;
    if (before == mark)
        return;
    m_rows.setUnread(row, mark);
    m_unread += (mark == NotUnread ? 0 : 1) - (before == NotUnread ? 0 : 1);
    Q_EMIT dataChanged(index(row), index(row), {UnreadRole, Qt::AccessibleTextRole});
}

void ZelBoxRecentFileModel::regroup()
{
    m_groups = groupRows(m_edges, m_rows.size(), [this](int row) { return m_rows.at(row).lastAccess; });
}

void ZelBoxRecentFileModel::finishChange()
{
    armDayTimer();
    Q_EMIT groupsChanged();
    Q_EMIT rowCountChanged(m_rows.size());
}

// The edges say more than the date: after a change of zone the same date begins at another moment. The timer
// starts anew because a set clock moves midnight away from it.
void ZelBoxRecentFileModel::refreshDay()
{
    const TimeGroupEdges edges = timeGroupEdges(zel::now().date());
    m_dayTimer.stop();
    if (edges != m_edges) {
        m_edges = edges;
        retranslate();
    }
    armDayTimer();
}

void ZelBoxRecentFileModel::retranslate()
{
    regroup();
    if (m_rows.size() > 0) {
        Q_EMIT dataChanged(
            index(0), index(m_rows.size() - 1), {TimeTextRole, GroupKindRole, Qt::AccessibleTextRole});
    }
    Q_EMIT groupsChanged();
}

// Two seconds past midnight, because a long timer keeps to full seconds only. It counts running time, so
// after a sleep it is late; whoever shows the rows calls refreshDay() when the user comes back.
void ZelBoxRecentFileModel::armDayTimer()
{
    if (m_rows.size() == 0) {
        m_dayTimer.stop();
        return;
    }
    const QDateTime now = zel::now();
    if (!m_dayTimer.isActive())
        m_dayTimer.start(int(now.msecsTo(now.date().addDays(1).startOfDay())) + 2000);
}

#include "service/roaming/roamingtable.h"

#include "base/clock.h"
#include "service/roaming/recordbytes.h"
#include "service/tables/tableresult.h"

#include <QHash>
#include <algorithm>
#include <limits>

namespace zel::service {
namespace {

using sqlite::Statement;
using sqlite::Transaction;

constexpr const char *Migrations[] = {R"(
CREATE TABLE roaming_record (
    user TEXT NOT NULL, id TEXT NOT NULL, device TEXT NOT NULL, path TEXT NOT NULL,
    file TEXT NOT NULL, folded TEXT NOT NULL, suffix TEXT NOT NULL, app TEXT NOT NULL,
    used INTEGER NOT NULL, changed INTEGER NOT NULL, deleted INTEGER NOT NULL, unread INTEGER NOT NULL,
    record BLOB NOT NULL, PRIMARY KEY (user, id));
CREATE INDEX roaming_used ON roaming_record (user, used DESC, id, deleted, changed, device, app, suffix, folded);
CREATE INDEX roaming_unread ON roaming_record (user, deleted) WHERE unread != 0;
CREATE INDEX roaming_path ON roaming_record (user, device, path);
CREATE INDEX roaming_file ON roaming_record (user, file);
CREATE TABLE roaming_list (user TEXT NOT NULL PRIMARY KEY, version INTEGER NOT NULL, fetched INTEGER NOT NULL);
)"};

qint64 nowMs()
{
    return zel::now().toMSecsSinceEpoch();
}

QString text(const std::string &value)
{
    return QString::fromStdString(value);
}

RoamingKey keyOf(const vela::RecentFileItem &item)
{
    return {text(item.roamingId), text(item.fileId)};
}

// A device that got no answer tells of a use again.
bool isSameUse(const vela::RecentFileItem &known, const vela::RecentFileItem &item)
{
    return known.fileTime == item.fileTime && known.curDeviceId == item.curDeviceId
        && known.operation == item.operation;
}

// A use elsewhere is no news when the same request says that the document was used here since, or went.
void dropSeen(RoamingChange &change)
{
    QHash<QString, bool> marked; // after the last use of each
    for (const vela::RecentFileItem &item : change.items)
        marked[text(item.roamingId)] = markOf(item) != RoamingMark::None;
    for (const QString &id : qAsConst(change.removed))
        marked[id] = false;
    const auto isSeen = [&marked](const auto &item) { return !marked.value(text(item.roamingId)); };
    change.arrived.erase(
        std::remove_if(change.arrived.begin(), change.arrived.end(), isSeen), change.arrived.end());
}

RoamingItems readAll(Statement &statement, qint64 most = std::numeric_limits<qint64>::max())
{
    RoamingItems items;
    for (qint64 size = 0; size < most && statement.step();) {
        vela::RecentFileItem item;
        const QByteArray bytes = statement.bytes(0);
        size += bytes.size();
        if (readRecord(bytes, item))
            items.push_back(std::move(item));
    }
    return items;
}

QStringList readIds(Statement &statement)
{
    QStringList ids;
    while (statement.step())
        ids.append(statement.text(0));
    return ids;
}

// Conditions of a page; the parameters are those of bindQuery().
constexpr char Matching[] =
    " FROM roaming_record WHERE user = ?1 AND (?2 = '' OR instr(folded, ?2) > 0)"
    " AND (?3 = '[]' OR suffix IN (SELECT value FROM json_each(?3))) AND (?4 = '' OR device = ?4)"
    " AND (?5 = '' OR device != ?5) AND (?6 = '' OR app = ?6) AND changed > ?7 AND (?8 OR NOT deleted)";

Statement &bindQuery(Statement &statement, const QString &user, const RoamingQuery &query)
{
    statement.bind(1, user).bind(2, query.keyword.toCaseFolded()).bind(3, asJson(query.suffixes));
    statement.bind(4, query.deviceId).bind(5, query.otherThanDevice).bind(6, query.appType);
    // Without a lower bound all pass, also records of before 1970.
    const qint64 after = query.changedAfter > 0 ? query.changedAfter : std::numeric_limits<qint64>::min();
    return statement.bind(7, after).bind(8, qint64(query.includeDeleted));
}

} // namespace

RoamingTable::RoamingTable(CloudDatabase &store, int limit)
    : m_store(store), m_database(store.connection()), m_limit(limit)
{
    m_store.addOwner([](sqlite::Database &database) {
        return prepareSchema(database, QStringLiteral("roaming"), Migrations);
    });
}

RoamingChange RoamingTable::transact(const std::function<void(RoamingChange &)> &work)
{
    RoamingChange change;
    const wire::ServiceError error = m_store.use([&](sqlite::Database &database) {
        Transaction transaction(database);
        work(change);
        if (m_companion && database.failure() == sqlite::Failure::None)
            m_companion(change);
        transaction.commit();
    });
    if (error != wire::ServiceError::None)
        change = {};
    change.error = error;
    return change;
}

RoamingChange RoamingTable::add(const QString &user, RoamingItems items, const QString &thisDevice)
{
    return transact([&](RoamingChange &change) {
        const std::string version = std::to_string(raiseVersion(user));
        for (vela::RecentFileItem &item : items) {
            item.opv = version;
            addOne(user, item, thisDevice, change);
        }
        change.removed += trim(user);
        for (const QString &id : qAsConst(change.removed))
            change.seen.append({id, {}});
        dropSeen(change);
    });
}

void RoamingTable::addOne(
    const QString &user, vela::RecentFileItem &item, const QString &thisDevice, RoamingChange &change)
{
    complete(item, nowMs());
    const auto before = known(user, item);
    if (before && qMin<qint64>(before->fileTime, nowMs()) > item.fileTime) {
        change.items.push_back(*before);
        return;
    }
    const bool elsewhere = text(item.curDeviceId) != thisDevice;
    const bool isRepeated = before && isSameUse(*before, item);
    if (before) {
        item = merged(*before, item);
    } else {
        made(item, nowMs());
        change.newIds.append(text(item.roamingId));
    }
    item.userId = user.toStdString();
    item.mtime = nowMs();
    const RoamingMark mark = before ? markOf(*before) : RoamingMark::None;
    setMark(item, isRepeated ? mark : markAfter(mark, !before, elsewhere, item.operation));
    if (elsewhere && !isRepeated && markOf(item) != RoamingMark::None)
        change.arrived.push_back(item);
    else if (mark != RoamingMark::None && markOf(item) == RoamingMark::None)
        change.seen.append(keyOf(item));
    change.removed += removeTwins(user, item);
    write(user, item);
    change.items.push_back(item);
}

RoamingChange RoamingTable::remove(const QString &user, const RoamingSelection &selection)
{
    return transact([&](RoamingChange &change) {
        change.items = select(user, selection);
        change.allSeen = selection.scope == RoamingSelection::Scope::All;
        for (const vela::RecentFileItem &item : change.items) {
            change.removed.append(text(item.roamingId));
            if (!change.allSeen)
                change.seen.append(keyOf(item));
        }
        if (!change.removed.isEmpty())
            raiseVersion(user);
        Statement statement(m_database,
            "DELETE FROM roaming_record WHERE user = ? AND id IN (SELECT value FROM json_each(?))");
        statement.bind(1, user).bind(2, asJson(change.removed)).run();
    });
}

RoamingChange RoamingTable::setMarks(const QString &user, const RoamingSelection &selection, bool unread)
{
    return transact([&](RoamingChange &change) {
        RoamingItems selected = select(user, selection);
        change.allSeen = !unread && selection.scope == RoamingSelection::Scope::All;
        // Also of those without a mark: what is told of them elsewhere may be unread all the same.
        for (const vela::RecentFileItem &item : selected)
            if (!unread && !change.allSeen)
                change.seen.append(keyOf(item));
        const auto edit = [unread](vela::RecentFileItem &item) {
            if (unread == (markOf(item) != RoamingMark::None))
                return false;
            setMark(item, unread ? RoamingMark::Modified : RoamingMark::None);
            return true;
        };
        rewrite(user, std::move(selected), edit, change);
        for (const vela::RecentFileItem &item : change.items)
            if (unread)
                change.unseen.append(keyOf(item));
    });
}

RoamingChange RoamingTable::setDeleted(const QString &user, const QStringList &fileIds, bool deleted)
{
    RoamingSelection selection;
    selection.fileIds = fileIds;
    return transact([&](RoamingChange &change) {
        const auto edit = [deleted](vela::RecentFileItem &item) {
            if (item.deleted == deleted)
                return false;
            item.deleted = deleted;
            item.status = deleted ? "deleted" : "normal";
            return true;
        };
        rewrite(user, select(user, selection), edit, change);
        for (const vela::RecentFileItem &item : change.items)
            if (markOf(item) != RoamingMark::None)
                (deleted ? change.seen : change.unseen).append(keyOf(item));
    });
}

void RoamingTable::rewrite(
    const QString &user, RoamingItems selected, const Edit &edit, RoamingChange &change)
{
    for (vela::RecentFileItem &item : selected)
        if (edit(item))
            change.items.push_back(std::move(item));
    if (change.items.empty())
        return;
    const std::string version = std::to_string(raiseVersion(user));
    for (vela::RecentFileItem &item : change.items) {
        item.mtime = nowMs();
        item.opv = version;
        write(user, item);
    }
}

wire::ServiceError RoamingTable::noteFetch(const QString &user, qint64 time)
{
    return m_store.use([&](sqlite::Database &database) {
        Statement(database,
            "INSERT INTO roaming_list VALUES (?, 1, ?)"
            " ON CONFLICT (user) DO UPDATE SET fetched = excluded.fetched")
            .bind(1, user)
            .bind(2, time)
            .run();
    });
}

wire::ServiceError RoamingTable::page(const QString &user, const RoamingQuery &query, RoamingPage &page)
{
    return m_store.use([&](sqlite::Database &database) {
        const QByteArray counting = QByteArray("SELECT count(*)") + Matching;
        Statement count(database, counting.constData());
        if (bindQuery(count, user, query).step())
            page.total = count.number(0);
        const QByteArray sql =
            QByteArray("SELECT record") + Matching + " ORDER BY used DESC, id LIMIT ?9 OFFSET ?10";
        Statement rows(database, sql.constData());
        bindQuery(rows, user, query).bind(9, qint64(query.count)).bind(10, qint64(query.offset));
        page.items = readAll(rows, query.bytes);
    });
}

wire::ServiceError RoamingTable::find(
    const QString &user, const QStringList &ids, RoamingPage &page, qint64 bytes)
{
    return m_store.use([&](sqlite::Database &database) {
        for (const QString &id : ids) {
            if (bytes <= 0)
                return;
            Statement statement(database, "SELECT record FROM roaming_record WHERE user = ? AND id = ?");
            statement.bind(1, user).bind(2, id);
            vela::RecentFileItem item;
            ++page.total;
            if (!statement.step())
                continue;
            bytes -= statement.bytes(0).size();
            if (readRecord(statement.bytes(0), item))
                page.items.push_back(std::move(item));
        }
    });
}

int RoamingTable::unreadCount(const QString &user)
{
    return int(numberFor(
        "SELECT count(*) FROM roaming_record WHERE user = ? AND unread != 0 AND NOT deleted", user));
}

qint64 RoamingTable::total(const QString &user)
{
    return numberFor("SELECT count(*) FROM roaming_record WHERE user = ?", user);
}

QString RoamingTable::version(const QString &user)
{
    return QString::number(numberFor("SELECT version FROM roaming_list WHERE user = ?", user));
}

qint64 RoamingTable::fetchTime(const QString &user)
{
    return numberFor("SELECT fetched FROM roaming_list WHERE user = ?", user);
}

qint64 RoamingTable::numberFor(const char *sql, const QString &user)
{
    qint64 number = 0;
    m_store.use([&](sqlite::Database &database) {
        Statement statement(database, sql);
        if (statement.bind(1, user).step())
            number = statement.number(0);
    });
    return number;
}

qint64 RoamingTable::raiseVersion(const QString &user)
{
    Statement statement(m_database,
        "INSERT INTO roaming_list VALUES (?, 1, 0) ON CONFLICT (user) DO UPDATE SET version = version + 1"
        " RETURNING version");
    return statement.bind(1, user).step() ? statement.number(0) : 0;
}

std::optional<vela::RecentFileItem> RoamingTable::known(const QString &user, const vela::RecentFileItem &item)
{
    // One question each, as together they would read the whole list.
    Statement byId(m_database, "SELECT record FROM roaming_record WHERE user = ? AND id = ?");
    RoamingItems items = readAll(byId.bind(1, user).bind(2, text(item.roamingId)));
    if (items.empty() && !item.fileId.empty()) {
        Statement byFile(m_database, "SELECT record FROM roaming_record WHERE user = ? AND file = ?");
        items = readAll(byFile.bind(1, user).bind(2, text(item.fileId)));
    }
    if (items.empty() && !item.path.empty()) {
        Statement byPath(
            m_database, "SELECT record FROM roaming_record WHERE user = ? AND device = ? AND path = ?");
        items = readAll(byPath.bind(1, user).bind(2, text(item.curDeviceId)).bind(3, text(item.path)));
    }
    if (items.empty())
        return {};
    return std::move(items.front());
}

QStringList RoamingTable::removeTwins(const QString &user, const vela::RecentFileItem &item)
{
    Statement statement(m_database,
        "DELETE FROM roaming_record WHERE user = ?1 AND id != ?2 AND device = ?3 AND path = ?4 AND ?4 != ''"
        " RETURNING id");
    statement.bind(1, user).bind(2, text(item.roamingId)).bind(3, text(item.curDeviceId));
    return readIds(statement.bind(4, text(item.path)));
}

void RoamingTable::write(const QString &user, const vela::RecentFileItem &item)
{
    Statement statement(
        m_database, "INSERT OR REPLACE INTO roaming_record VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    statement.bind(1, user).bind(2, text(item.roamingId)).bind(3, text(item.curDeviceId));
    statement.bind(4, text(item.path)).bind(5, text(item.fileId)).bind(6, text(item.name).toCaseFolded());
    statement.bind(7, suffixOf(text(item.name))).bind(8, text(item.appType)).bind(9, qint64(item.fileTime));
    statement.bind(10, qint64(item.mtime)).bind(11, qint64(item.deleted)).bind(12, qint64(markOf(item)));
    statement.bindBytes(13, recordBytes(item)).run();
}

QStringList RoamingTable::trim(const QString &user)
{
    Statement statement(m_database,
        "DELETE FROM roaming_record WHERE user = ?1 AND id IN (SELECT id FROM roaming_record WHERE user = ?1"
        " ORDER BY used DESC, id LIMIT -1 OFFSET ?2) RETURNING id");
    return readIds(statement.bind(1, user).bind(2, qint64(m_limit)));
}

RoamingItems RoamingTable::select(const QString &user, const RoamingSelection &selection)
{
    using Scope = RoamingSelection::Scope;
    Statement statement(m_database,
        "SELECT record FROM roaming_record WHERE user = ?1 AND (?2 OR (?3 AND device = ?6)"
        " OR id IN (SELECT value FROM json_each(?4)) OR (file != '' AND file IN (SELECT value FROM "
        "json_each(?5)))"
        " OR (device = ?6 AND path != '' AND path IN (SELECT value FROM json_each(?7))))");
    statement.bind(1, user).bind(2, qint64(selection.scope == Scope::All));
    statement.bind(3, qint64(selection.scope == Scope::Device)).bind(4, asJson(selection.ids));
    statement.bind(5, asJson(selection.fileIds)).bind(6, selection.deviceId).bind(7, asJson(selection.paths));
    return readAll(statement);
}

} // namespace zel::service

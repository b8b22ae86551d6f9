#pragma once

#include "service/tables/statement.h"
#include "service/tables/tableresult.h"

namespace zel::service {

inline constexpr int RadarUnread = 1; ///< bit of RadarFile::state: the user has not seen the file in the list

/// One received file. Its fields in this order are the fields of one row in a reply.
struct RadarFile
{
    int source = 0;  ///< 1 QQ and TIM, 2 WeChat, 3 web download, 4 desktop
    int subType = 0; ///< program within the source, as the scanner numbers them; 0 where there is only one
    QString path;    ///< full path, the identity of a row
    QString name;
    qint64 time = 0; ///< when it arrived; ms since epoch, UTC
    int state = RadarUnread;

    bool operator==(const RadarFile &) const = default;
};

/// What a change of the table meant, by path.
struct RadarChange
{
    sqlite::Failure failure = sqlite::Failure::None;
    QStringList added;
    QStringList modified;
};

/// The table metadata_zelbox_fileradar. Thread of its connection, which somebody else opened and
/// prepareTables() made ready, with synchronous=FULL. After a failure the next operation tries again.
///
/// RadarList gives all fields of all files, newest first. RadarForget and RadarClear give no answer
/// (`hasRows` is false); `rows` names the paths that they removed.
class RadarTable
{
public:
    explicit RadarTable(sqlite::Database &database) : m_database(database) { }

    TableResult run(const RadarStatement &statement);

    /// New files come in, known ones get the values of `files`; all or none. Files that are the same already
    /// are neither added nor modified.
    RadarChange store(const QVector<RadarFile> &files);
    TableResult remove(const QStringList &paths); ///< `rows`: the paths that were there

    static RadarFile fromRow(const QStringList &row); ///< missing fields are 0 or empty

private:
    sqlite::Database &m_database;
};

} // namespace zel::service

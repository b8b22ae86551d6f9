#include "service/tables/tableschema.h"

namespace zel::service {
namespace {

// One text for each version, in order. What was released is never edited: a change is a further text.
constexpr const char *Migrations[] = {R"(
CREATE TABLE metadata_zelbox_filemessage (
    messageId TEXT NOT NULL PRIMARY KEY,
    fileId TEXT NOT NULL, operatorId TEXT NOT NULL, time INTEGER NOT NULL,
    read INTEGER NOT NULL, trayRead INTEGER NOT NULL, recentRead INTEGER NOT NULL,
    topic TEXT NOT NULL, type TEXT NOT NULL, title TEXT NOT NULL, content TEXT NOT NULL,
    operatorName TEXT NOT NULL, fileName TEXT NOT NULL, groupId TEXT NOT NULL, category TEXT NOT NULL,
    linkId TEXT NOT NULL, extra TEXT NOT NULL);
CREATE INDEX message_file ON metadata_zelbox_filemessage (fileId, time);
CREATE INDEX message_operator ON metadata_zelbox_filemessage (operatorId, time);
CREATE INDEX message_time ON metadata_zelbox_filemessage (time);
CREATE INDEX message_unread ON metadata_zelbox_filemessage (type, fileId) WHERE read = 0;
CREATE INDEX message_recent_unread ON metadata_zelbox_filemessage (topic, fileId) WHERE recentRead = 0;
CREATE TABLE metadata_zelbox_fileradar (
    FilePath TEXT NOT NULL PRIMARY KEY,
    ImType INTEGER NOT NULL, SubType INTEGER NOT NULL, FileName TEXT NOT NULL, Time INTEGER NOT NULL,
    State INTEGER NOT NULL);
CREATE INDEX radar_time ON metadata_zelbox_fileradar (Time);
CREATE INDEX radar_source ON metadata_zelbox_fileradar (ImType);
CREATE TABLE radar_switch (type INTEGER NOT NULL PRIMARY KEY, watch INTEGER, backup INTEGER);
)",
    R"(
CREATE INDEX message_roaming ON metadata_zelbox_filemessage (time) WHERE topic = 'zel.roaming';
)"};

} // namespace

sqlite::SchemaState prepareTables(sqlite::Database &database)
{
    return sqlite::migrateArea(database, QStringLiteral("tables"), Migrations);
}

} // namespace zel::service

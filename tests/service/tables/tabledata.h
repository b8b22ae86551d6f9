#pragma once

#include "service/tables/messagetable.h"
#include "service/tables/radartable.h"
#include "service/tables/tableschema.h"

/// A database file of its own with the tables made ready, and a few rows.
struct TableData
{
    QTemporaryDir dir;
    zel::sqlite::Database database;
    zel::service::MessageTable messages{database};
    zel::service::RadarTable radar{database};

    TableData()
    {
        database.open(file());
        if (zel::service::prepareTables(database) != zel::sqlite::SchemaState::Ready)
            qFatal("the tables cannot be made");
    }
    QString file() const { return dir.filePath("cloud.db"_s); }

    static zel::service::Message message(const char *id, const char *file, const char *who, qint64 time,
        const char *topic, const char *type, bool unread = true)
    {
        zel::service::Message m;
        m.messageId = QString::fromUtf8(id);
        m.fileId = QString::fromUtf8(file);
        m.operatorId = QString::fromUtf8(who);
        m.time = time;
        m.topic = QString::fromUtf8(topic);
        m.type = QString::fromUtf8(type);
        m.read = m.trayRead = m.recentRead = !unread;
        return m;
    }

    bool fillMessages()
    {
        return messages
                   .insert({message("m1", "f1", "u1", 10, "zel.file", "share"),
                       message("m2", "f1", "u2", 20, "zel.link", "open"),
                       message("m3", "f2", "u1", 30, "zel.link.local", "open"),
                       message("m4", "f2", "u1", 40, "zel.file", "share", false),
                       message("r1", "f1", "u1", 50, "zel.roaming", "roaming_update"),
                       message("r2", "f1", "u2", 70, "zel.roaming", "roaming_update"),
                       message("r3", "f2", "u2", 60, "zel.roaming", "roaming_update"),
                       message("r4", "f3", "u2", 80, "zel.roaming", "roaming_create"),
                       message("r5", "", "u2", 90, "zel.roaming", "other"),
                       message("q1", "it's", "u'1", 95, "zel.file", "share")})
                   .changed
            == 10;
    }
    bool fillRadar()
    {
        const auto file = [](int source, const char *path, qint64 time) {
            return zel::service::RadarFile{source, 0, QString::fromUtf8(path), "n"_s, time, 1};
        };
        return radar
                   .store({file(1, "C:\\a", 10), file(2, "C:\\b", 30), file(1, "C:\\获", 20),
                       file(4, "it's", 5)})
                   .added.size()
            == 4;
    }
    /// Ids of the messages for which `condition` holds, in order.
    QString idsWhere(const char *condition)
    {
        const QByteArray sql =
            QByteArray("SELECT coalesce(group_concat(messageId, ' '), '') FROM (SELECT * FROM "
                       "metadata_zelbox_filemessage WHERE ")
            + condition + " ORDER BY messageId)";
        zel::sqlite::Statement statement(database, sql.constData());
        return statement.step() ? statement.text(0) : "?"_s;
    }
};

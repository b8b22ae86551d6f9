#include "base/clock.h"
#include "cloud/wire/rowcodec.h"
#include "service/tables/commandprocessor.h"
#include "service/tables/statementparser.h"
#include "service/tables/tableguard.h"
#include "tabledata.h"

using namespace zel;
using namespace zel::service;

Q_DECLARE_METATYPE(zel::service::MessageStatement)
Q_DECLARE_METATYPE(zel::service::TableGuard::Access)

using Rows = QVector<QStringList>;

class TablesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void questions_data()
    {
        const auto row = zeltest::table<MessageStatement, int, QString>("statement", "fields", "rows");
        const auto File = IdColumn::FileId, Operator = IdColumn::OperatorId;
        const auto id = [](const char *text) { return QString::fromUtf8(text); };
        // The fields after the count are those of the newest message.
        row("updates", RoamingList{RoamingKind::Update}, 6, "f1,2,70,f1,u2,70 f2,1,60,f2,u2,60");
        row("files", IdList{File}, 1, "f1 f2 it's");
        row("messages", IdMessages{File, id("f2"), 5}, 9,
            "f2,u1,40,1,1,1,zel.file,share,m4 f2,u1,30,0,0,0,zel.link.local,open,m3");
        row("quote in a value of ours", IdMessages{Operator, id("u'1"), 1}, 1, "it's");
        row("no messages", IdMessages{File, id("' or 1=1 --"), 5}, 1, "");
        row("unread", IdUnread{File, File, {id("f1"), id("f2"), id("none"), id("f1"), id("it's")}}, 2,
            "f1,2 f2,1 it's,1");
        row("unread of a file by operator", IdUnread{Operator, File, {id("f1")}}, 2, "u1,1 u2,1");
        row("unread of an id with all signs", IdUnread{File, File, {id("\"]\\u0000 获,")}}, 2, "");
    }

    void questions()
    {
        const auto [statement, fields] = zeltest::row<MessageStatement, int>();
        TableData data;
        QVERIFY(data.fillMessages());
        const TableResult result = data.messages.run(statement);
        QVERIFY(result.ok() && result.hasRows);
        QTEST(print(result.rows, fields), "rows");
        QCOMPARE(data.idsWhere("read = 1"), "m4"_s);
    }

    void marks_data()
    {
        const auto row = zeltest::table<MessageStatement, QString, QString>("statement", "read", "trayRead");
        const auto id = [](const char *text) { return QString::fromUtf8(text); };
        row("clear a file, not its roaming", ClearId{IdColumn::FileId, id("f1")}, "m1 m2 m4", "m1 m2 m4");
        row("clear an operator", ClearId{IdColumn::OperatorId, id("u1")}, "m1 m3 m4", "m1 m3 m4");
        row("later ones stay", MarkReadUpTo{id("f1"), 50, true}, "m1 m2 m4 r1", "m1 m2 m4 r1");
        row("not in the tray", MarkReadUpTo{id("f1"), 49, false}, "m1 m2 m4", "m4");
        row("unknown", ClearId{IdColumn::FileId, id("' or 1=1 --")}, "m4", "m4");
    }

    void marks()
    {
        auto [statement, read] = zeltest::row<MessageStatement, QString>();
        TableData data;
        QVERIFY(data.fillMessages());
        const TableResult result = data.messages.run(statement);
        QVERIFY(result.ok() && !result.hasRows);
        QCOMPARE(int(result.changed), read.count(QLatin1Char(' ')));
        QCOMPARE(data.idsWhere("read = 1"), read);
        QTEST(data.idsWhere("trayRead = 1"), "trayRead");
        QCOMPARE(data.idsWhere("recentRead = 1"), "m4"_s);
        QCOMPARE(int(data.messages.run(statement).changed), 0);
    }

    void radar()
    {
        TableData data;
        QVERIFY(data.fillRadar());
        const auto paths = [&data] {
            const auto pathOf = [](const QStringList &row) { return RadarTable::fromRow(row).path; };
            return zeltest::joined(data.radar.run(RadarList{}).rows, pathOf);
        };
        QCOMPARE(paths(), "C:\\b C:\\获 C:\\a it's"_s);

        const QVector<QStringList> rows = data.radar.run(RadarList{}).rows;
        RadarFile same = RadarTable::fromRow(rows.at(0));
        RadarFile newer = RadarTable::fromRow(rows.at(2));
        QVERIFY(same == (RadarFile{2, 0, "C:\\b"_s, "n"_s, 30, RadarUnread}));
        newer.time = 40;
        const RadarChange change = data.radar.store({same, newer, {3, 7, "new"_s, QString(), 1, 0}});
        QCOMPARE(change.added, QStringList("new"_s));
        QCOMPARE(change.modified, QStringList("C:\\a"_s));
        QCOMPARE(paths(), "C:\\a C:\\b C:\\获 it's new"_s);

        TableResult gone = data.radar.run(RadarClear{1});
        QVERIFY(!gone.hasRows);
        QCOMPARE(int(gone.changed), 2);
        QCOMPARE(paths(), "C:\\b it's new"_s);
        QCOMPARE(int(data.radar.run(RadarForget{"x' or '1'='1"_s}).changed), 0);
        gone = data.radar.run(RadarForget{"C:\\b"_s});
        QCOMPARE(gone.rows, QVector<QStringList>{{"C:\\b"_s}});
        gone = data.radar.remove({"it's"_s, "?"_s});
        QCOMPARE(gone.rows, QVector<QStringList>{{"it's"_s}});
        QCOMPARE(paths(), "new"_s);
    }

    void guard_data()
    {
        using Access = TableGuard::Access;
        const auto table = zeltest::table<Access, QByteArray, bool>("access", "sql", "allowed");
        const auto row = [&](Access access, const char *sql, bool allowed) {
            table("%1 %2"_s.arg(int(access)).arg(QLatin1String(sql)), access, sql, allowed);
        };
        const char *read = "SELECT count(*), max(time) FROM metadata_zelbox_filemessage";
        const char *mark =
            "UPDATE metadata_zelbox_filemessage SET read = 1, trayRead = 1 WHERE fileId = 'f1'";
        const char *wipe = "DELETE FROM metadata_zelbox_filemessage";
        row(Access::Read, read, true);
        row(Access::Read, mark, false);
        row(Access::Read, wipe, false);
        row(Access::MarkRead, mark, true);
        row(Access::MarkRead, wipe, false);
        row(Access::Delete, mark, false);
        row(Access::Delete, wipe, true);
        row(Access::Delete, "DELETE FROM metadata_zelbox_fileradar", false);
        row(Access::Delete, "DROP TABLE metadata_zelbox_filemessage", false);
        row(Access::MarkRead, "UPDATE metadata_zelbox_filemessage SET fileId = 'x'", false);
        row(Access::MarkRead,
            "UPDATE metadata_zelbox_filemessage SET read = (SELECT max(Time) FROM metadata_zelbox_fileradar)",
            false);
        row(Access::MarkRead, "INSERT INTO metadata_zelbox_filemessage (read) VALUES (1)", false);
        row(Access::Read,
            "SELECT * FROM metadata_zelbox_filemessage UNION SELECT "
            "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17",
            true);
        for (const char *sql : {"SELECT * FROM metadata_zelbox_fileradar", "SELECT * FROM sqlite_master",
                 "SELECT load_extension('x')", "SELECT randomblob(9) FROM metadata_zelbox_filemessage",
                 "ATTACH 'other.db' AS other", "PRAGMA user_version = 3", "BEGIN", "CREATE TEMP TABLE t (a)",
                 "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n"})
            row(Access::Read, sql, false);
    }

    void guard()
    {
        const auto [access, sql, allowed] = zeltest::row<TableGuard::Access, QByteArray, bool>();
        TableData data;
        QVERIFY(data.fillMessages() && data.fillRadar());
        {
            const TableGuard guard(data.database, "metadata_zelbox_filemessage", access);
            sqlite::Statement(data.database, sql.constData()).run();
        }
        QVERIFY2((data.database.failure() == sqlite::Failure::None) == allowed,
            qUtf8Printable(data.database.failureText()));
        if (!allowed)
            QVERIFY2(data.database.failureText().contains("prohibited"_s)
                    || data.database.failureText().contains("not authorized"_s),
                qUtf8Printable(data.database.failureText()));
        data.database.clearFailure();
        QCOMPARE(int(data.database.number("SELECT count(*) FROM metadata_zelbox_fileradar")), 4);
        QVERIFY(data.database.exec("BEGIN; COMMIT")); // the wall is gone
    }

    void failuresPass()
    {
        TableData data;
        QVERIFY(data.fillMessages() && data.fillRadar());
        QVERIFY(data.database.exec("PRAGMA busy_timeout = 0"));
        sqlite::Database writer;
        QVERIFY(writer.open(data.file()));
        {
            sqlite::Transaction held(writer);
            const TableResult result = data.messages.run(ClearId{IdColumn::FileId, "f1"_s});
            QVERIFY(result.failure == sqlite::Failure::Busy && result.changed == 0);
            QVERIFY(data.radar.store({{1, 0, "x"_s, {}, 0, 0}}).failure == sqlite::Failure::Busy);
            QVERIFY(data.messages.insert({Message()}).failure == sqlite::Failure::Busy);
        }
        QCOMPARE(int(data.messages.run(ClearId{IdColumn::FileId, "f1"_s}).changed), 2);
        QCOMPARE(data.radar.run(RadarList{}).rows.size(), 4);

        data.database.close();
        QVERIFY(!data.radar.run(RadarList{}).ok());
        QVERIFY(!data.messages.insert({Message()}).ok());
    }

    void comeBackTheSame_data()
    {
        const auto row = zeltest::table<Rows, QString>("rows", "text");
        const QString empty = ""_s;
        row("none", {}, "");
        row("plain", {{"1"_s, "获取.odt"_s}, {"2"_s, empty}}, "1$$$$获取.odt####2$$$$\\e");
        row("empty only", {{empty}, {empty, empty}}, "\\e####\\e$$$$\\e");
        row("marks", {{"a####b$$$$c"_s, "#$"_s}}, "a\\h\\h\\h\\hb\\d\\d\\d\\dc$$$$\\h\\d");
        row("escapes", {{"\\e"_s, "C:\\data\\home\\"_s, "\\\\d"_s}},
            "\\\\e$$$$C:\\\\data\\\\home\\\\$$$$\\\\\\\\d");
    }

    void comeBackTheSame()
    {
        const auto [rows, text] = zeltest::row<Rows, QString>();
        QCOMPARE(zel::wire::joinRows(rows), text);
        QCOMPARE(zel::wire::splitRows(text), rows);
    }

    void pushes_data()
    {
        const auto row = zeltest::table<QString, bool, QString>("command", "done", "pushes");
        const QString list = "select * from metadata_zelbox_fileradar Order by Time Desc"_s;
        row("radar list", line("GetRadarMsg", list, "GetUnreadRadarMsg"_s), true,
            "GetRadarMsg asker "
            "{\"commandline\":\"2$$$$0$$$$C:\\\\\\\\b$$$$n$$$$30$$$$1####1$$$$0$$$$C:\\\\\\\\获$$$$n$$$$20"
            "$$$$1####1$$$$0$$$$C:\\\\\\\\a$$$$n$$$$10$$$$1####4$$$$0$$$$it's$$$$n$$$$5$$$$1\","
            "\"guid\":\"GetUnreadRadarMsg\",\"state\":\"success\"}");
        row("clear a source",
            line("GetRadarMsg", "delete from metadata_zelbox_fileradar where ImType = 2"_s,
                "deleteRadarUnread"_s),
            true,
            "GetRadarMsg asker "
            "{\"commandline\":\"success\",\"guid\":\"deleteRadarUnread\",\"state\":\"success\"}\n"
            "RadarFileDelete all {\"commandline\":\"C:\\\\\\\\b\"}");
        const QString none =
            "select * from metadata_zelbox_filemessage where fileId = '%1' and (topic = 'zel.file' or topic "
            "= 'zel.link' or topic = 'zel.link.local') Order by time Desc limit 9"_s;
        row("quote in an id", line("GetStoredMsg", none.arg("it's"_s), "g"_s), false,
            "GetStoredMsg asker {\"commandline\":\"failed\",\"guid\":\"g\",\"state\":\"failed\"}");
        row("mark",
            line("GetStoredMsg",
                "Update metadata_zelbox_filemessage Set read = 1 Where fileId = 'f1' and time <= 50"_s,
                "SetRoamingMsgRead"_s),
            true,
            "SetRoamingMsgRead asker "
            "{\"commandline\":\"success\",\"guid\":\"SetRoamingMsgRead\",\"state\":\"success\"}");
        row("the other table", line("GetStoredMsg", list, "NewMsgArrive"_s), false,
            "GetStoredMsg asker {\"commandline\":\"failed\",\"guid\":\"NewMsgArrive\",\"state\":\"failed\"}");
        row("close", "/closeRadarSwitch /type=1", true, "QQRadarSettingChange all {\"setting\":\"false\"}");
        row("backup", "/SwitchBackupStatus=1 /BackupType=3", true,
            "GetBackupResult all {\"BackupType\":\"3\",\"commandline\":\"success\",\"setting\":\"true\"}");
        row("tray", "/ClearAllTrayUnread=1 /MessageType=share", true, "");
    }

    void pushes()
    {
        QFETCH(QString, command);
        TableData data;
        QVERIFY(data.fillMessages() && data.fillRadar());
        SwitchTable switches(data.database);
        CommandProcessor processor(data.radar, data.messages, switches);
        const CommandOutcome outcome = processor.process(command);
        QVERIFY(outcome.understood);
        QTEST(outcome.done, "done");
        QTEST(print(outcome.pushes), "pushes");
        QCOMPARE(data.idsWhere("trayRead = 1"), command.contains("Tray"_s) ? "m1 m4 q1"_s : "m4"_s);
        QCOMPARE(switches.isOn(SwitchTable::Switch::Watch, 1), !command.contains("close"_s));
        QCOMPARE(switches.isOn(SwitchTable::Switch::Backup, 3), command.contains("Backup"_s));
    }

    void linkDocument()
    {
        TableData data;
        SwitchTable switches(data.database);
        CommandProcessor processor(data.radar, data.messages, switches);
        // No raw string: moc does not find the class behind one.
        const QByteArray json = "{\"fileId\":\"f9\",\"fileName\":\"获.odt\",\"linkId\":\"l\","
                                "\"operatorId\":\"u9\",\"title\":\"t'\"}";
        setFixedNow(QDateTime::fromMSecsSinceEpoch(12345));
        const auto outcome =
            processor.process("/InsertLinkCreateDocMsg="_s + QString::fromLatin1(json.toBase64()));
        setFixedNow({});
        QCOMPARE(print(outcome.pushes), "NewMsgArrive all {}"_s);
        const auto rows = data.messages.run(IdMessages{IdColumn::OperatorId, "u9"_s, 9}).rows;
        QCOMPARE(rows.size(), 1);
        const Message message = MessageTable::fromRow(rows.first());
        QCOMPARE(message.time, 12345);
        QCOMPARE(message.fileName + message.linkId + message.title, "获.odtlt'"_s);
        QVERIFY(data.messages.unreadCounts() == UnreadCounts{});
    }

private:
    /// Rows with their fields joined by ",", only the first `fields` of each.
    static QString print(const QVector<QStringList> &rows, int fields)
    {
        return zeltest::joined(
            rows, [fields](const QStringList &row) { return row.mid(0, fields).join(QLatin1Char(',')); });
    }

    static QString line(const char *name, const QString &statement, const QString &guid)
    {
        return "/%1=%2 /TaskGuid=%3"_s.arg(
            QString::fromUtf8(name), QString::fromLatin1(statement.toUtf8().toBase64()), guid);
    }
    /// One push a line: "command to whom {values}".
    static QString print(const QVector<Push> &pushes)
    {
        QStringList lines;
        for (const Push &push : pushes) {
            const bool all = push.audience == Push::Audience::Everyone;
            lines.append(push.command + (all ? " all "_s : " asker "_s)
                + QString::fromUtf8(QJsonDocument(push.values).toJson(QJsonDocument::Compact)));
        }
        return lines.join(QLatin1Char('\n'));
    }
};

QTEST_GUILESS_MAIN(TablesTest)
#include "tst_tables.moc"

#include "service/tables/statementparser.h"
#include "service/tables/tableguard.h"
#include "tabledata.h"

#include <QTest>

using namespace zel;
using namespace zel::service;

Q_DECLARE_METATYPE(zel::service::MessageStatement)
Q_DECLARE_METATYPE(zel::service::TableGuard::Access)

namespace {

/// Rows with their fields joined by ",", only the first `fields` of each.
QString print(const QVector<QStringList> &rows, int fields)
{
    return zeltest::joined(
        rows, [fields](const QStringList &row) { return row.mid(0, fields).join(QLatin1Char(',')); });
}

} // namespace

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
        QFETCH(MessageStatement, statement);
        QFETCH(int, fields);
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
        QFETCH(MessageStatement, statement);
        QFETCH(QString, read);
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
        QTest::addColumn<Access>("access");
        QTest::addColumn<QByteArray>("sql");
        QTest::addColumn<bool>("allowed");
        const auto row = [](Access access, const char *sql, bool allowed) {
            QTest::addRow("%d %s", int(access), sql) << access << QByteArray(sql) << allowed;
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
        QFETCH(TableGuard::Access, access);
        QFETCH(QByteArray, sql);
        QFETCH(bool, allowed);
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
};

QTEST_GUILESS_MAIN(TablesTest)
#include "tst_tables.moc"

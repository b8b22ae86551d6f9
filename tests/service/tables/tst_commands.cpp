#include "base/clock.h"
#include "service/tables/commandprocessor.h"
#include "tabledata.h"

#include <QJsonDocument>
#include <QTest>

using namespace zel;
using namespace zel::service;

namespace {

QString line(const char *name, const QString &statement, const QString &guid)
{
    return "/%1=%2 /TaskGuid=%3"_s.arg(
        QString::fromUtf8(name), QString::fromLatin1(statement.toUtf8().toBase64()), guid);
}

/// One push a line: "command to whom {values}".
QString print(const QVector<Push> &pushes)
{
    QStringList lines;
    for (const Push &push : pushes) {
        const bool all = push.audience == Push::Audience::Everyone;
        lines.append(push.command + (all ? " all "_s : " asker "_s)
            + QString::fromUtf8(QJsonDocument(push.values).toJson(QJsonDocument::Compact)));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

class CommandsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:

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
};

QTEST_GUILESS_MAIN(CommandsTest)
#include "tst_commands.moc"

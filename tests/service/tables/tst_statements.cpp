#include "service/tables/servicecommand.h"
#include "service/tables/statementparser.h"

#include <QTest>

using namespace zel::service;

Q_DECLARE_METATYPE(zel::service::Statement)
Q_DECLARE_METATYPE(zel::service::Refusal)

namespace {

const QString Family =
    QStringLiteral("(topic = 'zel.file' or topic = 'zel.link' or topic = 'zel.link.local')");

/// A count of the unread messages of `count` ids.
QString unreadOf(int count)
{
    QStringList ids;
    for (int i = 0; i < count; ++i)
        ids.append(QStringLiteral("fileId = 'f%1'").arg(i));
    return QStringLiteral("select fileId,count(*) from metadata_zelbox_filemessage where read = 0 and (")
        + ids.join(QStringLiteral(" or ")) + QStringLiteral(") and ") + Family
        + QStringLiteral(" group by fileId");
}

QString forget(const QString &path)
{
    return QStringLiteral("delete from metadata_zelbox_fileradar where FilePath = '%1'").arg(path);
}

QString messagesOf(const QString &id, const QString &tail)
{
    return QStringLiteral("select * from metadata_zelbox_filemessage where fileId = '") + id
        + QStringLiteral("' and ") + Family + tail;
}

QString readUpTo(const QString &id, const QString &time)
{
    return QStringLiteral("Update metadata_zelbox_filemessage Set read = 1 Where fileId = '") + id
        + QStringLiteral("' and time <= ") + time;
}

QString base64(const QString &text)
{
    return QString::fromLatin1(text.toUtf8().toBase64());
}

} // namespace

class StatementsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void takesWhatClientsSend_data();
    void takesWhatClientsSend();
    void refuses_data();
    void refuses();
    void understandsCommands_data();
    void understandsCommands();
};

void StatementsTest::takesWhatClientsSend_data()
{
    using R = RadarStatement;
    using M = MessageStatement;
    const auto File = IdColumn::FileId, Operator = IdColumn::OperatorId;
    QTest::addColumn<QString>("text");
    QTest::addColumn<Statement>("meaning");
    const auto row = [](const char *name, const QString &text, const Statement &meaning) {
        QTest::newRow(name) << text << meaning;
    };
    const QString table = QStringLiteral("metadata_zelbox_filemessage");
    row("radar forget", forget(QStringLiteral("C:\\获取\\a b.docx")),
        R(RadarForget{QStringLiteral("C:\\获取\\a b.docx")}));
    row("radar clear", QStringLiteral("delete from metadata_zelbox_fileradar where ImType = 3"),
        R(RadarClear{3}));
    const QString ids =
        QStringLiteral("select %2 from %1 where topic = 'zel.file' or topic = 'zel.link' or topic = "
                       "'zel.link.local' group by %2");
    row("files", ids.arg(table, QStringLiteral("fileId")), M(IdList{File}));
    row("messages of a file",
        messagesOf(QStringLiteral("f1"), QStringLiteral(" Order by time Desc limit 20")),
        M(IdMessages{File, QStringLiteral("f1"), 20}));
    const QStringList two{QStringLiteral("f0"), QStringLiteral("f1")};
    row("unread of files", unreadOf(2), M(IdUnread{File, File, two}));
    row("unread of files by operator",
        unreadOf(1)
            .replace(QStringLiteral("select fileId"), QStringLiteral("select operatorId"))
            .replace(QStringLiteral("by fileId"), QStringLiteral("by operatorId")),
        M(IdUnread{Operator, File, {QStringLiteral("f0")}}));
    row("clear an operator",
        QStringLiteral(
            "Update metadata_zelbox_filemessage Set read = 1, trayRead = 1 Where operatorId = 'u' and ")
            + Family,
        M(ClearId{Operator, QStringLiteral("u")}));
    row("read up to, tray too",
        readUpTo(QStringLiteral("f"), QStringLiteral("9223372036854775807"))
            .replace(QStringLiteral("read = 1"), QStringLiteral("read = 1, trayRead = 1")),
        M(MarkReadUpTo{QStringLiteral("f"), 9223372036854775807, true}));
    row("read up to, no id", readUpTo(QString(), QStringLiteral("0")),
        M(MarkReadUpTo{QLatin1String(""), 0, false}));
}

void StatementsTest::takesWhatClientsSend()
{
    QFETCH(QString, text);
    QFETCH(Statement, meaning);
    const auto statement = parseStatement(text);
    QVERIFY(statement);
    QVERIFY(*statement == meaning);
    QCOMPARE(toText(*statement), text);
    // Nothing of it can be left out, and nothing follows it.
    for (int length = 0; length < text.size(); ++length) {
        const auto part = parseStatement(QStringView(text).left(length));
        QVERIFY2(!part || toText(*part) == text.left(length), qUtf8Printable(text.left(length)));
    }
    for (const char *more : {" ", ";", "; drop table metadata_zelbox_fileradar", "--", "'", " or 1=1"})
        QVERIFY2(!parseStatement(QString(text + QLatin1String(more))), more);
}

void StatementsTest::refuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Refusal>("why");
    const auto row = [](const char *name, const QString &text, Refusal why = Refusal::UnknownShape) {
        QTest::newRow(name) << text << why;
    };
    row("another table", QStringLiteral("select * from sqlite_master Order by Time Desc"));
    row("another case", QStringLiteral("SELECT * from metadata_zelbox_fileradar Order by Time Desc"));
    row("two statements", forget(QStringLiteral("a")) + QLatin1Char(';') + forget(QStringLiteral("b")));
    row("quote in a path", forget(QStringLiteral("it's")));
    row("doubled quote", forget(QStringLiteral("it''s")));
    row("path that widens", forget(QStringLiteral("x' or '1' = '1")));
    row("id that widens",
        messagesOf(
            QStringLiteral("x' or 1=1 or fileId = 'x"), QStringLiteral(" Order by time Desc limit 1")));
    row("id that ends the statement",
        messagesOf(QStringLiteral("x' and ") + Family + QStringLiteral(" Order by time Desc limit 9 --"),
            QStringLiteral(" Order by time Desc limit 1")));
    row("id that brings its own time", readUpTo(QStringLiteral("x' and time <= 99"), QStringLiteral("5")));
    row("other column",
        readUpTo(QStringLiteral("x"), QStringLiteral("5"))
            .replace(QStringLiteral("fileId"), QStringLiteral("topic")));
    row("unread by another column",
        unreadOf(1).replace(QStringLiteral("by fileId"), QStringLiteral("by operatorId")));
    row("unread of nothing", unreadOf(0));
    row("number with a sign", readUpTo(QStringLiteral("x"), QStringLiteral("-1")));
    row("number with leading zero", readUpTo(QStringLiteral("x"), QStringLiteral("01")));
    row("other digits", readUpTo(QStringLiteral("x"), QString(QChar(0x0665))));
    row("time too large", readUpTo(QStringLiteral("x"), QStringLiteral("9223372036854775808")),
        Refusal::NumberTooLarge);
    row("limit too large", messagesOf(QStringLiteral("x"), QStringLiteral(" Order by time Desc limit 10000")),
        Refusal::NumberTooLarge);
    row("path too long", forget(QString(MaxPathLength + 1, QLatin1Char('x'))), Refusal::ValueTooLong);
    row("too many ids", unreadOf(MaxIds + 1), Refusal::TooManyIds);
    row("too long", QString(MaxStatementLength + 1, QLatin1Char(' ')), Refusal::TooLong);
    row("zero", forget(QString(QChar(0))), Refusal::NotText);
    row("half a character", forget(QString(QChar(0xd800))), Refusal::NotText);
}

void StatementsTest::refuses()
{
    QFETCH(QString, text);
    QFETCH(Refusal, why);
    Refusal reason = Refusal::TooLong;
    QVERIFY(!parseStatement(text, &reason));
    QCOMPARE(toText(reason), toText(why));
}

void StatementsTest::understandsCommands_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("kind"); // index in ServiceCommand, -1: not understood
    const auto row = [](const char *name, const QString &line, int kind) {
        QTest::newRow(name) << line << kind;
    };
    const QString text = base64(QStringLiteral("selects >>>o?o?~? 获取"));
    row("radar", QStringLiteral("/GetRadarMsg=%1 /TaskGuid=GetUnreadRadarMsg").arg(text), 0);
    row("stored, other order and case, quoted",
        QStringLiteral("  /TASKGUID:\"a b$$$$c\"  \"/getstoredmsg=%1\" ").arg(text), 0);
    row("empty statement", QStringLiteral("/GetRadarMsg= /TaskGuid=g"), 0);
    row("open", QStringLiteral("/openRadarSwitch /type=1"), 1);
    row("backup", QStringLiteral("/SwitchBackupStatus=true /BackupType=2"), 2);
    row("tray", QStringLiteral("/ClearAllTrayUnread=1 /MessageType=zel.file"), 3);
    row("link document",
        QStringLiteral("/InsertLinkCreateDocMsg=%1").arg(base64(QStringLiteral("{\"fileId\":\"f\"}"))), 4);

    row("nothing", QString(), -1);
    row("unknown", QStringLiteral("/format=c:"), -1);
    row("no guid", QStringLiteral("/GetRadarMsg=%1").arg(text), -1);
    row("guid too long",
        QStringLiteral("/GetRadarMsg=%1 /TaskGuid=%2")
            .arg(text, QString(MaxGuidLength + 1, QLatin1Char('g'))),
        -1);
    row("two tables", QStringLiteral("/GetRadarMsg=%1 /GetStoredMsg=%1 /TaskGuid=g").arg(text), -1);
    row("a name twice", QStringLiteral("/openRadarSwitch /type=1 /TYPE=2"), -1);
    row("text between", QStringLiteral("/openRadarSwitch now /type=1"), -1);
    row("open quote", QStringLiteral("/openRadarSwitch /type=\"1"), -1);
    row("no Base64", QStringLiteral("/GetRadarMsg=c2Vs*Q== /TaskGuid=g"), -1);
    row("wide characters in Base64", QStringLiteral("/GetRadarMsg=获获获获 /TaskGuid=g"), -1);
    row("no UTF-8", QStringLiteral("/GetRadarMsg=/w== /TaskGuid=g"), -1);
    row("source 0", QStringLiteral("/openRadarSwitch /type=0"), -1);
    row("source 5", QStringLiteral("/closeRadarSwitch /type=5"), -1);
    row("half switched", QStringLiteral("/SwitchBackupStatus=2 /BackupType=1"), -1);
    row("tray without a type", QStringLiteral("/ClearAllTrayUnread=1 /MessageType="), -1);
    row("tray not to be cleared", QStringLiteral("/ClearAllTrayUnread=0 /MessageType=zel.file"), -1);
    row("link document without a file",
        QStringLiteral("/InsertLinkCreateDocMsg=%1").arg(base64(QStringLiteral("{}"))), -1);
    row("too long", QStringLiteral("/openRadarSwitch /type=1") + QString(MaxCommandLength, QLatin1Char(' ')),
        -1);
}

void StatementsTest::understandsCommands()
{
    QFETCH(QString, line);
    QFETCH(int, kind);
    const auto command = parseCommand(line);
    QCOMPARE(command ? int(command->index()) : -1, kind);
    const QString sent = QStringLiteral("selects >>>o?o?~? 获取");
    if (kind == 0 && line.contains(base64(sent)))
        QCOMPARE(std::get<TableCommand>(*command).statement, sent);
}

QTEST_GUILESS_MAIN(StatementsTest)
#include "tst_statements.moc"

#include "cloud/wire/rowcodec.h"

#include <QTest>

using Rows = QVector<QStringList>;

class RowsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void comeBackTheSame_data();
    void comeBackTheSame();
    void takesForeignTextAsItStands_data();
    void takesForeignTextAsItStands();
};

void RowsTest::comeBackTheSame_data()
{
    QTest::addColumn<Rows>("rows");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const Rows &rows, const char *text) {
        QTest::newRow(name) << rows << QString::fromUtf8(text);
    };
    const QString empty = QLatin1String("");
    row("none", {}, "");
    row("plain", {{QStringLiteral("1"), QStringLiteral("获取.odt")}, {QStringLiteral("2"), empty}},
        "1$$$$获取.odt####2$$$$\\e");
    row("empty only", {{empty}, {empty, empty}}, "\\e####\\e$$$$\\e");
    row("marks", {{QStringLiteral("a####b$$$$c"), QStringLiteral("#$")}},
        "a\\h\\h\\h\\hb\\d\\d\\d\\dc$$$$\\h\\d");
    row("escapes", {{QStringLiteral("\\e"), QStringLiteral("C:\\data\\home\\"), QStringLiteral("\\\\d")}},
        "\\\\e$$$$C:\\\\data\\\\home\\\\$$$$\\\\\\\\d");
    row("lines", {{QStringLiteral("a\n\tb\r\n")}}, "a\n\tb\r\n");
    row("emoji", {{QString::fromUtf8("\xf0\x9f\x98\x80")}}, "\xf0\x9f\x98\x80");
}

void RowsTest::comeBackTheSame()
{
    QFETCH(Rows, rows);
    QFETCH(QString, text);
    QCOMPARE(zel::wire::joinRows(rows), text);
    QCOMPARE(zel::wire::splitRows(text), rows);
}

void RowsTest::takesForeignTextAsItStands_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Rows>("rows");
    const QString a = QStringLiteral("a"), empty;
    QTest::newRow("unescaped empty fields")
        << QStringLiteral("a$$$$$$$$####") << Rows{{a, empty, empty}, {empty}};
    QTest::newRow("unknown escape") << QStringLiteral("\\x\\ea") << Rows{{QStringLiteral("\\x\\ea")}};
    QTest::newRow("escape cut off") << QStringLiteral("a\\") << Rows{{QStringLiteral("a\\")}};
    QTest::newRow("more marks than four")
        << QStringLiteral("a#####a$$$$$a") << Rows{{a}, {QStringLiteral("#a"), QStringLiteral("$a")}};
}

void RowsTest::takesForeignTextAsItStands()
{
    QFETCH(QString, text);
    QFETCH(Rows, rows);
    QCOMPARE(zel::wire::splitRows(text), rows);
}

QTEST_GUILESS_MAIN(RowsTest)
#include "tst_rows.moc"

#include "cloud/wire/rowcodec.h"

#include <QTest>

using Rows = QVector<QStringList>;

class RowsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void comeBackTheSame_data();
    void comeBackTheSame();
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
}

void RowsTest::comeBackTheSame()
{
    QFETCH(Rows, rows);
    QFETCH(QString, text);
    QCOMPARE(zel::wire::joinRows(rows), text);
    QCOMPARE(zel::wire::splitRows(text), rows);
}

QTEST_GUILESS_MAIN(RowsTest)
#include "tst_rows.moc"

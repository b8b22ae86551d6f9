#include "cloud/wire/rowcodec.h"
#include "support/table.h"

#include <QTest>

using Rows = QVector<QStringList>;

class RowsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:

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
        QFETCH(Rows, rows);
        QFETCH(QString, text);
        QCOMPARE(zel::wire::joinRows(rows), text);
        QCOMPARE(zel::wire::splitRows(text), rows);
    }
};

QTEST_GUILESS_MAIN(RowsTest)
#include "tst_rows.moc"

#include "clouddoc/clouddocmodel.h"
#include "clouddoc/clouddocnames.h"
#include "clouddoc/cloudtransfermodel.h"

#include "support/printmodel.h"
#include "support/rowsignals.h"

using namespace zel::clouddoc;
using zeltest::printModel;
using Key = zel::ListSort::Key;
Q_DECLARE_METATYPE(zel::ListSort)
Q_DECLARE_METATYPE(NameProblem)

class TestCloudDocModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sorts_data()
    {
        const auto row = zeltest::table<zel::ListSort, QString>("sort", "expected");
        row("names: case ignored, digits by value", {Key::Name, Qt::AscendingOrder},
            "A b a2.odt B.txt C9.zip c10");
        row("names backwards, folders still first", {Key::Name, Qt::DescendingOrder},
            "b A c10 C9.zip B.txt a2.odt");
        row("newest first", {Key::Time, Qt::DescendingOrder}, "A b c10 B.txt a2.odt C9.zip");
        row("largest first, equal ones by name", {Key::Size, Qt::DescendingOrder},
            "A b B.txt a2.odt C9.zip c10");
        row("type", {Key::Type, Qt::AscendingOrder}, "A b c10 a2.odt B.txt C9.zip");
    }
    void sorts()
    {
        QFETCH(zel::ListSort, sort);
        CloudDocModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.add(documents("c10:1@9 b/@7 a2.odt:1@3 A/@8 B.txt:5@4 C9.zip:1@1"_s));
        model.setSortOrder({Key::Time, Qt::AscendingOrder});
        model.setSortOrder(sort);
        QTEST(printModel(model), "expected");
    }

    void filters_data()
    {
        const auto row = zeltest::table<QString, QString>("text", "expected");
        row("nothing", "", "Bilder Größe.odt report-2024.txt 报告.odt");
        row("folders as well", "BILD", "Bilder");
        row("what is hidden stays hidden", "secret", "");
    }
    void filters()
    {
        QFETCH(QString, text);
        CloudDocModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.add(documents("报告.odt report-2024.txt Größe.odt .secret Bilder/"_s));
        model.setFilterText(text);
        QTEST(printModel(model), "expected");
        QCOMPARE(model.totalCount(), 5);
        QVERIFY(model.hasName(".secret"_s));
        model.setFilterText({});
        QCOMPARE(model.rowCount(), 4);
    }

    // How rows are told is the list kit's; here what is taken for a change, and what a list leaves alone.
    void changes()
    {
        CloudDocModel model;
        model.add(documents("a b c d e"_s));
        model.setTransfer("c"_s, CloudDocument::Transfer::Uploading, 30);
        zeltest::RowSignals told(&model);
        model.replaceAll(documents("a b c:7 e f f"_s)); // the last one twice
        QCOMPARE(told.take(), "removed 3; inserted 4; changed 2"_s);
        QVERIFY(told.roles().contains(CloudDocModel::SizeRole)
            && !told.roles().contains(CloudDocModel::NameRole));
        QCOMPARE(model.find("c"_s)->progress, 30); // a list does not tell of transfers
        CloudDocument renamed = model.document(0);
        renamed.name = "z"_s;
        model.put(renamed);
        QCOMPARE(printModel(model), "b c e f z"_s);
        QCOMPARE(model.rowOf("a"_s), 4);
        model.setTransfer("e"_s, CloudDocument::Transfer::Failed, 0);
        model.remove({"b"_s, "nobody"_s, "b"_s});
        QCOMPARE(told.take(), "moved 0 to 5; changed 4; changed 2; removed 0; sections; counts"_s);
        QVERIFY(!model.find("b"_s));
        model.clear();
        QCOMPARE(told.take(), "reset; sections; counts"_s);
    }

    void names_data()
    {
        const auto row = zeltest::table<QString, NameProblem>("name", "problem");
        row("usual", "报告 2.odt", NameProblem::None);
        row("hidden", ".config", NameProblem::None);
        row("empty", QString(), NameProblem::Empty);
        row("slash", "a/b", NameProblem::Slash);
        row("the folder above", "..", NameProblem::Reserved);
        row("the drive's own", ".zel-x", NameProblem::Reserved);
        row("line break", "a\nb", NameProblem::ControlCharacter);
        row("lone surrogate", QString(QChar(0xD800)), NameProblem::ControlCharacter);
        row("longest", QString(255, QLatin1Char('x')), NameProblem::None);
        row("bytes count, not characters", QString(86, QChar(0x544A)), NameProblem::TooLong);
        row("taken", "taken", NameProblem::Taken);
    }
    void names()
    {
        QFETCH(QString, name);
        QTEST(checkName(name, [](const QString &one) { return one == "taken"_s; }), "problem");
    }

    void freeNames()
    {
        const QStringList taken{"a.b"_s, "a (2).b"_s, QString(255, QLatin1Char('x'))};
        const auto isTaken = [&taken](const QString &name) { return taken.contains(name); };
        QCOMPARE(freeName("c"_s, true, isTaken), "c"_s);
        QCOMPARE(freeName("a.b"_s, false, isTaken), "a (3).b"_s);
        QCOMPARE(freeName("a.b"_s, true, isTaken), "a.b (2)"_s);
        QCOMPARE(checkName(freeName(taken.at(2), true, isTaken), isTaken), NameProblem::None);
    }

    void transfers()
    {
        const auto transfer = [](const char *id, CloudTransfer::State state, int done) {
            CloudTransfer one;
            one.id = one.name = QString::fromLatin1(id);
            one.state = state;
            one.doneBytes = done;
            one.totalBytes = 100;
            return one;
        };
        using State = CloudTransfer::State;
        CloudTransferModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy activity(&model, &CloudTransferModel::activityChanged);
        model.put({transfer("a", State::Done, 100), transfer("b", State::Running, 50)});
        model.put({transfer("c", State::Waiting, 0), transfer("e", State::Failed, 0),
            transfer("b", State::Running, 60)});
        QCOMPARE(printModel(model), "b c e a"_s);
        QCOMPARE(model.newestFirst().first().id, "e"_s);
        QCOMPARE(model.totalPercent(), 30);
        QTRY_COMPARE(activity.count(), 1); // one for all of it
        zeltest::RowSignals told(&model);
        model.replaceAll({transfer("f", State::Done, 100), transfer("d", State::Waiting, 0),
            transfer("c", State::Done, 0), transfer("a", State::Done, 100)});
        QCOMPARE(printModel(model), "d f c a"_s);
        QCOMPARE(told.take(), "removed 2; removed 0; inserted 0-1; changed 2"_s);
        model.replaceAll({transfer("d", State::Waiting, 0), transfer("a", State::Done, 100),
            transfer("c", State::Done, 0)});
        QCOMPARE(printModel(model), "d a c"_s); // in the service's order
        model.remove({"d"_s, "a"_s, "nobody"_s});
        QCOMPARE(printModel(model), "c"_s);
        QCOMPARE(model.endedCount(), 1);
        QCOMPARE(model.totalPercent(), -1);
    }

private:
    // "name", "folder/", "name:size@time".
    static CloudDocument document(const QString &text)
    {
        CloudDocument document;
        document.name = text.section(QRegularExpression("[/:@]"_s), 0, 0);
        document.id = document.name;
        document.folder = text.contains(QLatin1Char('/'));
        document.size = text.section(QLatin1Char(':'), 1).section(QLatin1Char('@'), 0, 0).toInt();
        document.modifiedAt = text.section(QLatin1Char('@'), 1).toInt();
        return document;
    }
    static CloudDocuments documents(const QString &texts)
    {
        CloudDocuments all;
        for (const QString &text : texts.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            all.append(document(text));
        return all;
    }
};

QTEST_GUILESS_MAIN(TestCloudDocModel)
#include "tst_model.moc"

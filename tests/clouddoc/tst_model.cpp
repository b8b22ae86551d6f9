#include "clouddoc/clouddocmodel.h"
#include "clouddoc/clouddocnames.h"
#include "clouddoc/cloudtransfermodel.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace zel::clouddoc;
using Key = CloudSort::Key;
Q_DECLARE_METATYPE(CloudSort)

namespace {

// "name", "folder/", "name:size@time".
CloudDocument document(const QString &text)
{
    CloudDocument document;
    document.name = text.section(QRegularExpression(QStringLiteral("[/:@]")), 0, 0);
    document.id = document.name;
    document.folder = text.contains(QLatin1Char('/'));
    document.size = text.section(QLatin1Char(':'), 1).section(QLatin1Char('@'), 0, 0).toInt();
    document.modifiedAt = text.section(QLatin1Char('@'), 1).toInt();
    return document;
}

CloudDocuments documents(const QString &texts)
{
    CloudDocuments all;
    for (const QString &text : texts.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        all.append(document(text));
    return all;
}

QString print(const QAbstractItemModel &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names << model.index(row, 0).data().toString();
    return names.join(QLatin1Char(' '));
}

} // namespace

class TestCloudDocModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sorts_data();
    void sorts();
    void filters_data();
    void filters();
    void rowsAreFollowed();
    void oneChangeIsOneSignal();
    void names_data();
    void names();
    void freeNames();
    void transfers();
};

void TestCloudDocModel::sorts_data()
{
    QTest::addColumn<CloudSort>("sort");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, Key key, Qt::SortOrder order, const char *expected) {
        QTest::newRow(name) << CloudSort{key, order} << QString::fromLatin1(expected);
    };
    row("names: case ignored, digits by value", Key::Name, Qt::AscendingOrder, "A b a2.odt B.txt C9.zip c10");
    row("names backwards, folders still first", Key::Name, Qt::DescendingOrder,
        "b A c10 C9.zip B.txt a2.odt");
    row("newest first", Key::Time, Qt::DescendingOrder, "A b c10 B.txt a2.odt C9.zip");
    row("largest first, equal ones by name", Key::Size, Qt::DescendingOrder, "A b B.txt a2.odt C9.zip c10");
    row("type", Key::Type, Qt::AscendingOrder, "A b c10 a2.odt B.txt C9.zip");
}

void TestCloudDocModel::sorts()
{
    QFETCH(CloudSort, sort);
    CloudDocModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.add(documents(QStringLiteral("c10:1@9 b/@7 a2.odt:1@3 A/@8 B.txt:5@4 C9.zip:1@1")));
    model.setSortOrder({Key::Time, Qt::AscendingOrder});
    model.setSortOrder(sort);
    QTEST(print(model), "expected");
}

void TestCloudDocModel::filters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing") << QString() << QStringLiteral("Bilder Größe.odt report-2024.txt 报告.odt");
    QTest::newRow("case and accents") << QStringLiteral("GROSSE") << QStringLiteral("Größe.odt");
    QTest::newRow("words in any order") << QStringLiteral("2024 rep") << QStringLiteral("report-2024.txt");
    QTest::newRow("folders as well") << QStringLiteral("bild") << QStringLiteral("Bilder");
    QTest::newRow("ideographs") << QStringLiteral("告") << QStringLiteral("报告.odt");
    QTest::newRow("what is hidden stays hidden") << QStringLiteral("secret") << QString();
}

void TestCloudDocModel::filters()
{
    QFETCH(QString, text);
    CloudDocModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.add(documents(QStringLiteral("报告.odt report-2024.txt Größe.odt .secret Bilder/")));
    model.setFilterText(text);
    QTEST(print(model), "expected");
    QCOMPARE(model.totalCount(), 5);
    QVERIFY(model.hasName(QStringLiteral(".secret")));
    model.setFilterText({});
    QCOMPARE(model.rowCount(), 4);
}

// Whatever happens, in any mixture: the rows are those that a plain sort gives, and every index that somebody
// holds still is of the document that it was of.
void TestCloudDocModel::rowsAreFollowed()
{
    QRandomGenerator random(7);
    CloudDocModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QMap<QString, CloudDocument> expected;
    const auto some = [&random](int most) {
        CloudDocuments picked;
        for (int i = random.bounded(most); i >= 0; --i) {
            CloudDocument one = document(QStringLiteral("n%1").arg(random.bounded(400)));
            one.modifiedAt = random.bounded(50);
            picked.append(one);
        }
        return picked;
    };
    for (int round = 0; round < 300; ++round) {
        QVector<QPair<QPersistentModelIndex, QString>> held;
        for (int row = 0; row < model.rowCount(); row += 3)
            held.append({model.index(row), model.document(row).id});
        const CloudDocuments picked = some(round % 5 == 0 ? 150 : 3);
        QStringList ids;
        for (const CloudDocument &one : picked)
            ids.append(one.id);
        const bool replaces = round % 11 == 0 && round % 3 != 1;
        if (replaces)
            expected.clear();
        if (round % 3 == 1) {
            model.remove(ids);
            for (const QString &id : qAsConst(ids))
                expected.remove(id);
        } else {
            for (const CloudDocument &one : picked)
                expected.insert(one.id, one);
            replaces ? model.replaceAll(expected.values().toVector()) : model.add(picked);
        }
        if (round % 7 == 0)
            model.setSortOrder({round % 2 ? Key::Time : Key::Name, Qt::SortOrder(random.bounded(2))});
        if (round % 13 == 0)
            model.setFilterText(random.bounded(2) ? QStringLiteral("3") : QString());
        int shown = 0;
        for (const CloudDocument &one : qAsConst(expected)) {
            const int row = model.rowOf(one.id);
            QCOMPARE(row >= 0, model.filterText().isEmpty() || one.name.contains(QLatin1Char('3')));
            shown += row >= 0;
            if (row >= 0)
                QCOMPARE(model.document(row), one);
        }
        QCOMPARE(model.rowCount(), shown);
        for (const auto &[index, id] : qAsConst(held))
            QCOMPARE(index.isValid() ? index.row() : -1, model.rowOf(id));
    }
}

void TestCloudDocModel::oneChangeIsOneSignal()
{
    CloudDocModel model;
    model.add(documents(QStringLiteral("a b c d e")));
    QSignalSpy removed(&model, &CloudDocModel::rowsRemoved);
    QSignalSpy moved(&model, &CloudDocModel::rowsMoved);
    QSignalSpy changed(&model, &CloudDocModel::dataChanged);
    QSignalSpy inserted(&model, &CloudDocModel::rowsInserted);
    model.replaceAll(documents(QStringLiteral("a b c:7 e")));
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed.at(0).at(1).toInt(), 3);
    QCOMPARE(changed.count(), 1);
    QVERIFY(changed.at(0).at(2).value<QVector<int>>().contains(CloudDocModel::SizeRole));
    CloudDocument renamed = model.document(0);
    renamed.name = QStringLiteral("z");
    model.put(renamed);
    QCOMPARE(print(model), QStringLiteral("b c e z"));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(inserted.count(), 0);
}

void TestCloudDocModel::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("problem");
    const auto row = [](const char *title, const QString &name, NameProblem problem) {
        QTest::newRow(title) << name << int(problem);
    };
    row("usual", QStringLiteral("报告 2.odt"), NameProblem::None);
    row("hidden", QStringLiteral(".config"), NameProblem::None);
    row("empty", QString(), NameProblem::Empty);
    row("slash", QStringLiteral("a/b"), NameProblem::Slash);
    row("the folder above", QStringLiteral(".."), NameProblem::Reserved);
    row("the drive's own", QStringLiteral(".zel-x"), NameProblem::Reserved);
    row("line break", QStringLiteral("a\nb"), NameProblem::ControlCharacter);
    row("lone surrogate", QString(QChar(0xD800)), NameProblem::ControlCharacter);
    row("longest", QString(255, QLatin1Char('x')), NameProblem::None);
    row("bytes count, not characters", QString(86, QChar(0x544A)), NameProblem::TooLong);
    row("taken", QStringLiteral("taken"), NameProblem::Taken);
}

void TestCloudDocModel::names()
{
    QFETCH(QString, name);
    QTEST(int(checkName(name, [](const QString &one) { return one == QLatin1String("taken"); })), "problem");
}

void TestCloudDocModel::freeNames()
{
    const QStringList taken{QStringLiteral("a.b"), QStringLiteral("a (2).b"), QString(255, QLatin1Char('x'))};
    const auto isTaken = [&taken](const QString &name) { return taken.contains(name); };
    QCOMPARE(freeName(QStringLiteral("c"), true, isTaken), QStringLiteral("c"));
    QCOMPARE(freeName(QStringLiteral("a.b"), false, isTaken), QStringLiteral("a (3).b"));
    QCOMPARE(freeName(QStringLiteral("a.b"), true, isTaken), QStringLiteral("a.b (2)"));
    QCOMPARE(checkName(freeName(taken.at(2), true, isTaken), isTaken), NameProblem::None);
}

void TestCloudDocModel::transfers()
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
    model.put({transfer("c", State::Waiting, 0), transfer("b", State::Running, 60)});
    QCOMPARE(print(model), QStringLiteral("c b a"));
    QCOMPARE(model.totalPercent(), 30);
    QTRY_COMPARE(activity.count(), 1); // one for all of it
    model.replaceAll(
        {transfer("d", State::Waiting, 0), transfer("c", State::Done, 0), transfer("a", State::Done, 100)});
    QCOMPARE(print(model), QStringLiteral("d c a"));
    QCOMPARE(model.rowOf(QStringLiteral("a")), 2);
    model.remove({QStringLiteral("d"), QStringLiteral("a"), QStringLiteral("nobody")});
    QCOMPARE(print(model), QStringLiteral("c"));
    QCOMPARE(model.rowOf(QStringLiteral("c")), 0);
    QCOMPARE(model.endedCount(), 1);
    QCOMPARE(model.totalPercent(), -1);
}

QTEST_GUILESS_MAIN(TestCloudDocModel)
#include "tst_model.moc"

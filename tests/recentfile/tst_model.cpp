#include "recentfile/recentfilemodel.h"

#include "recentfile/documentkind.h"
#include "recentfile/records.h"

using namespace recenttest;
using Model = ZelBoxRecentFileModel;

class TestModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setZone("UTC"); }
    void roles()
    {
        const FixedNow now(at("2024-03-20 10:00"_s));
        RecentFileInfo info = record("x"_s, at("2024-03-20 09:05"_s));
        info.path = "/data/my docs/archive.tar.gz"_s;
        info.displayText = "shown"_s;
        info.cloudName = "In the cloud.tgz"_s;
        info.cloudFileId = qint64(1) << 40;
        info.cloudBacked = true;
        info.size = qint64(1) << 33;
        info.pinned = true;
        info.deviceName = "laptop"_s;
        info.roamingId = "r1"_s;
        info.presence = RecentFileInfo::Presence::Missing;
        Model model;
        model.setRecords({info});

        const QMap<int, QVariant> expected{{256, info.id}, {257, info.displayText}, {258, info.path},
            {259, "gz"_s}, {260, "archive.tar"_s}, {261, {}}, {262, info.cloudName},
            {264, "archive.tar.gz"_s}, {267, at("2024-03-20 09:05"_s)}, {268, "09:05"_s}, {269, true},
            {270, false}, {271, -1}, {272, info.cloudFileId}, {277, 1}, {278, info.size}, {279, true},
            {280, info.deviceName}, {281, info.roamingId}, {282, int(zel::recent::DocumentKind::Archive)},
            {Model::PresenceRole, int(info.presence)}, {Qt::DisplayRole, "archive.tar.gz"_s},
            {Qt::ToolTipRole, info.path},
            {Qt::AccessibleTextRole, "archive.tar.gz, 09:05, Pinned, Missing, On laptop"_s}};
        for (auto role = expected.cbegin(); role != expected.cend(); ++role)
            QVERIFY2(
                model.index(0).data(role.key()) == role.value(), qPrintable(QString::number(role.key())));

        info.roaming = true;
        model.updateRecord(info);
        QCOMPARE(model.index(0).data(Model::NameRole).toString(), info.cloudName);
        info.cloudName.clear();
        info.path.clear();
        model.updateRecord(info);
        QCOMPARE(model.index(0).data(Qt::DisplayRole).toString(), info.displayText);
        QCOMPARE(model.index(0).data(Qt::ToolTipRole).toString(), "shown\nLast used on laptop"_s);
    }

    void badRecordsDoNotGetIn()
    {
        Model model;
        QAbstractItemModelTester tester(&model);
        model.setRecords(
            {record("a"_s, 9), record("d"_s, 9), record("b"_s, 9), record("c"_s, 20)}); // unsorted
        QVERIFY(model.removeRows(3, 1)); // before any id is looked for
        QCOMPARE(model.rowOf("d"_s), -1);
        QCOMPARE(ids(model), QStringList({"c"_s, "a"_s, "b"_s}));
        QCOMPARE(model.addRecord(record({}, 1)), -1);
        QVERIFY(!model.updateRecord(record("nobody"_s, 1)));
        QVERIFY(!model.removeRecord("nobody"_s));
        QVERIFY(!model.removeRows(2, 2));
        QVERIFY(!model.removeRows(-1, 1));
        QVERIFY(!model.data(model.index(7), Model::NameRole).isValid());
        QCOMPARE(model.addRecord(record("b"_s, 30)), 0); // known: moves instead
        QCOMPARE(model.rowCount(), 3);
        QVERIFY(model.removeRecord("a"_s));
        QCOMPARE(ids(model), QStringList({"b"_s, "c"_s}));
    }

    void updateTellsWhatChanged_data()
    {
        // move: from, to
        const auto row = zeltest::table<RecentFileInfo, QList<int>, QVector<int>>("next", "move", "roles");

        const auto b = [](qint64 time) { return record("b"_s, time); };
        const auto with = [&b](const std::function<void(RecentFileInfo &)> &change) {
            RecentFileInfo info = b(20);
            change(info);
            return info;
        };
        const QVector<int> times{Model::LastAccessRole, Model::TimeTextRole, Model::GroupKindRole};
        row("nothing", b(20), {}, {});
        row("presence", with([](auto &info) { info.presence = RecentFileInfo::Presence::Missing; }), {},
            {Model::PresenceRole});
        row("moved to another folder", with([](auto &info) { info.path = "/b.odt"_s; }), {},
            {Model::PathRole, Model::SuffixRole, Model::BaseNameRole, Qt::ToolTipRole});
        row("renamed", with([](auto &info) { info.path = "/data/docs/c.pdf"_s; }), {},
            {Model::PathRole, Model::SuffixRole, Model::BaseNameRole, Model::NameRole, Qt::DisplayRole,
                Model::DocumentKindRole, Qt::ToolTipRole});
        row("time, same place", b(25), {}, times);
        row("time, to the top", b(40), {1, 0}, times);
        row("time, to the end", b(1), {1, 3}, times);
        row("same time as the next, id decides", b(10), {}, times);
    }
    void updateTellsWhatChanged()
    {
        Model model;
        QAbstractItemModelTester tester(&model);
        model.setRecords({record("a"_s, 30), record("b"_s, 20), record("c"_s, 10)});
        QSignalSpy moved(&model, &Model::rowsMoved);
        QSignalSpy changed(&model, &Model::dataChanged);

        auto [next, move, roles] = zeltest::row<RecentFileInfo, QList<int>, QVector<int>>();
        QVERIFY(model.updateRecord(next));
        QCOMPARE(moved.size(), move.isEmpty() ? 0 : 1);
        if (!move.isEmpty())
            QCOMPARE(QList<int>({moved.at(0).at(1).toInt(), moved.at(0).at(4).toInt()}), move);
        QCOMPARE(changed.size(), roles.isEmpty() ? 0 : 1);
        if (!roles.isEmpty()) {
            QCOMPARE(changed.at(0).at(2).value<QVector<int>>(), roles << Qt::AccessibleTextRole);
            QCOMPARE(changed.at(0).at(0).toModelIndex().data(Model::IdRole).toString(), next.id);
        }
    }

    // The model against a plain vector that is sorted anew after each of many random changes.
    void randomChangesKeepOrder()
    {
        const FixedNow now(at("2024-03-20 10:00"_s));
        const qint64 base = at("2024-03-20 09:00"_s).toMSecsSinceEpoch();
        Model model;
        QAbstractItemModelTester tester(&model);
        QVector<RecentFileInfo> plain;
        QRandomGenerator random(20240320);
        const auto find = [&](const QString &id) {
            return std::find_if(
                plain.begin(), plain.end(), [&](const RecentFileInfo &info) { return info.id == id; });
        };
        for (int step = 0; step < 3000; ++step) {
            RecentFileInfo info = record(QString::number(random.bounded(60)),
                base - random.bounded(200) * 86400000LL / 2); // equal times happen
            info.unread = random.bounded(4) == 0 ? random.bounded(2) : -1;
            const auto known = find(info.id);
            if (random.bounded(3) == 0) {
                QCOMPARE(model.removeRecord(info.id), known != plain.end());
                if (known != plain.end())
                    plain.erase(known);
            } else if (known != plain.end()) {
                model.updateRecord(info);
                const int unread = info.unread == -1 ? known->unread : info.unread;
                *known = info;
                known->unread = unread;
            } else {
                model.addRecord(info);
                plain.append(info);
            }
            std::sort(plain.begin(), plain.end(), [](const RecentFileInfo &a, const RecentFileInfo &b) {
                return std::pair(-a.lastAccess, a.id) < std::pair(-b.lastAccess, b.id);
            });
            if (step % 50 != 0)
                continue;
            Model fresh;
            fresh.setRecords(plain);
            QCOMPARE(ids(model), ids(fresh));
            QCOMPARE(model.groups(), fresh.groups());
            QCOMPARE(model.unreadCount(),
                int(std::count_if(
                    plain.cbegin(), plain.cend(), [](const auto &one) { return one.unread != -1; })));
            for (int row = 0; row < plain.size(); ++row)
                QCOMPARE(model.rowOf(plain.at(row).id), row);
        }
    }

    void marks()
    {
        RecentFileInfo cloud = record("c"_s, 10);
        cloud.cloudFileId = 77;
        Model model;
        model.setRecords({record("a"_s, 30), record("b"_s, 20), cloud});
        QSignalSpy changed(&model, &Model::dataChanged);
        const ZELBOX_ROAMING_MSGLIST messages{{"a"_s, {}}, {"77"_s, {}}, {"9"_s, {}}};

        auto result = model.markUnread(messages, Model::Modified);
        QVERIFY(result.changed);
        QCOMPARE(result.unknownIds, QStringList{"9"_s});
        QCOMPARE(model.unreadCount(), 2);
        QCOMPARE(changed.size(), 2);
        QCOMPARE(model.index(2).data(Model::UnreadRole).toInt(), int(Model::Modified));

        result = model.markUnread(messages, Model::Modified);
        QVERIFY(!result.changed);
        model.updateRecord(record("a"_s, 40)); // the store knows nothing of marks
        QCOMPARE(model.unreadCount(), 2);
        model.removeRecord("a"_s);
        QCOMPARE(model.unreadCount(), 1);
        QVERIFY(model.setData(model.index(0), 0, Model::UnreadRole));
        QVERIFY(!model.setData(model.index(0), "x"_s, Model::NameRole));
        QCOMPARE(model.unreadCount(), 2);
        QVERIFY(model.clearUnread());
        QVERIFY(!model.clearUnread());
        QCOMPARE(model.unreadCount(), 0);

        RecentFileInfo roaming = record("r"_s, 5); // of these the store knows
        roaming.roamingId = "r1"_s;
        roaming.unread = Model::New;
        model.addRecord(roaming);
        QCOMPARE(model.unreadMarks(), (QHash<QString, int>{{"r"_s, 0}}));
        roaming.unread = Model::NotUnread;
        model.updateRecord(roaming);
        QCOMPARE(model.unreadCount(), 0);
    }

    // The traveller's date is the same, but midnight is at another moment.
    void anotherZoneMovesTheGroups()
    {
        const FixedNow now(at("2024-03-20 12:00"_s));
        Model model;
        model.setRecords({record("a"_s, at("2024-03-20 02:00"_s))});
        QCOMPARE(model.groups()[0].count, 1);
        QSignalSpy changed(&model, &Model::dataChanged);
        setZone("America/New_York");
        zel::setFixedNow(at("2024-03-20 08:00"_s));
        model.refreshDay();
        QCOMPARE(model.groups()[1].count, 1);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(model.index(0).data(Model::TimeTextRole).toString(), "yesterday 22:00"_s);
    }

private:
    static QStringList ids(const Model &model)
    {
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row)
            rows << model.record(row).id;
        return rows;
    }
};

QTEST_GUILESS_MAIN(TestModel)
#include "tst_model.moc"

#include "failing.h"

#include "service/roaming/roamingtable.h"
#include "service/store/servicetables.h"
#include "service/transfer/transfertable.h"

using namespace zel::service;
using zel::wire::ServiceError;

namespace {

const QString user = "u"_s;

/// The service's database with what three owners keep in it, and its reading.
struct Store
{
    explicit Store(const QString &file) : database(file) { }

    CloudDatabase database;
    ServiceTables tables{database};
    RoamingTable records{database};
    TransferTable transfers{database};

    ServiceError record(const char *path)
    {
        RoamingItems items(1);
        items[0].path = path;
        items[0].name = "n";
        items[0].fileTime = path[1];
        return records.add(user, items, "here"_s).error;
    }
    ServiceError transfer(std::initializer_list<const char *> names)
    {
        TransferTasks tasks;
        for (const char *name : names) {
            tasks.emplace_back();
            tasks.back().name = QLatin1String(name);
            tasks.back().info.transferState = int(TransferState::Waiting);
        }
        return transfers.add(user, tasks);
    }
    TransferTasks tasks()
    {
        TransferTasks found;
        (void)transfers.all(user, found);
        return found;
    }
    QString state(const QString &folder)
    {
        ServiceTables::Values values;
        QString device;
        RoamingPage page;
        (void)tables.readAll(user, {}, values);
        (void)database.use([&device](zel::sqlite::Database &open) {
            zel::sqlite::Statement known(open, "SELECT id FROM device");
            device = known.step() ? known.text(0) : QString();
        });
        (void)records.page(user, {}, page);
        QString state = "device#"_s % device;
        for (auto it = values.cbegin(); it != values.cend(); ++it)
            state += QLatin1Char(' ') % it.key() % QLatin1Char('=') % it.value().left(9);
        for (const auto &item : page.items)
            state += " record:"_s % QString::fromStdString(item.path) % QLatin1Char('#')
                % QString::fromStdString(item.roamingId);
        for (const TransferTask &task : tasks())
            state += " task:"_s % task.name % QLatin1Char('=') % QString::number(int(task.state()));
        return state % QLatin1Char(' ')
            % QDir(folder).entryList({"*damaged*"_s}, QDir::Files).join(QLatin1Char(' '));
    }
};

using Step = std::function<ServiceError(Store &)>;

} // namespace

Q_DECLARE_METATYPE(Step)

class TestStoreCalls : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // Each use of the database, its opening included, with each of its file calls failing once.
    void uses_data()
    {
        QVERIFY2(faults(), "needs the layer");
        faults()->isFull = false;
        const auto row = zeltest::table<Step>("step");
        row("open", [](Store &s) { return s.database.ready(); });
        row("device", [](Store &s) {
            QString id;
            return s.tables.deviceId(id);
        });
        row("settings", [](Store &s) { return s.tables.write(user, {{"a"_s, "2"_s}, {"b"_s, "3"_s}}); });
        row("add a record", [](Store &s) { return s.record("/new"); });
        row("remove the records", [](Store &s) {
            return s.records.remove(user, {{}, {}, {}, {}, RoamingSelection::Scope::All}).error;
        });
        row("add transfers", [](Store &s) { return s.transfer({"three", "four"}); });
        row("change transfers", [](Store &s) {
            TransferTasks tasks;
            const ServiceError read = s.transfers.all(user, tasks);
            for (TransferTask &task : tasks)
                task.info.transferState = int(TransferState::Paused);
            return read == ServiceError::None ? s.transfers.update(tasks) : read;
        });
    }
    void uses()
    {
        QFETCH(Step, step);
        QTemporaryDir place;
        const QString filled = place.filePath("filled.db"_s);
        {
            Store store(filled);
            QCOMPARE(store.tables.write(user, {{"a"_s, "1"_s}, {"long"_s, QString(9000, QLatin1Char('x'))}}),
                ServiceError::None);
            QCOMPARE(store.record("/old"), ServiceError::None);
            QCOMPARE(store.transfer({"one", "two"}), ServiceError::None);
        }
        QString before;
        QString done;
        for (int nth = 0;; ++nth) {
            QTemporaryDir folder;
            const QString file = folder.filePath("cloud.db"_s);
            QVERIFY(QFile::copy(filled, file));
            auto store = std::make_unique<Store>(file);
            if (nth == 0) {
                before = store->state(folder.path());
                QCOMPARE(step(*store), ServiceError::None);
                done = shapeOf(store->state(folder.path()));
                continue;
            }
            ServiceError error = ServiceError::None;
            {
                const Failing failing(folder.path(), nth);
                error = step(*store);
                if (!failing.happened()) {
                    QVERIFY2(error == ServiceError::None && nth > 10, QByteArray::number(nth).constData());
                    return;
                }
            }
            const QString after = store->state(folder.path());
            QVERIFY(error == ServiceError::None || isSame(nth, "left", after, before));
            QVERIFY(error == ServiceError::None || step(*store) == ServiceError::None);
            const QString last = store->state(folder.path());
            QVERIFY(isSame(nth, "came to", shapeOf(last), done));
            store = std::make_unique<Store>(file);
            QVERIFY(isSame(nth, "is, after a start,", store->state(folder.path()), last));
        }
    }
};

QTEST_GUILESS_MAIN(TestStoreCalls)
#include "tst_storecalls.moc"

#include "service/store/clouddatabase.h"
#include "service/store/servicetables.h"

using namespace zel;
using namespace zel::service;
using wire::ServiceError;

namespace {

constexpr char user[] = "local-1000";

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int modeOf(const QString &path)
{
    struct stat info = {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 ? int(info.st_mode & 0777) : -1;
}

} // namespace

class TestDatabase : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath("cloud.db"_s);
    }

    void privateFiles()
    {
        write({});
        QVERIFY(QFile::setPermissions(
            m_file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
        Store store(m_file);
        QString device;
        QCOMPARE(store.tables.deviceId(device), ServiceError::None);
        QCOMPARE(modeOf(m_file), 0600);
        QCOMPARE(modeOf(m_file + "-wal"_s), 0600);
        QCOMPARE(store.database.connection().number("PRAGMA synchronous"), qint64(2)); // FULL
    }

    void unusableFile_data()
    {
        const auto row = zeltest::table<QString>("damage");
        row("another format", "text");
        row("zeroed header", "header");
        row("a page in the middle overwritten", "page");
        row("cut in half", "cut");
        row("tables of others in it", "foreign");
        row("made by a later version", "newer");
        row("a folder", "folder");
    }

    void unusableFile()
    {
        QFETCH(QString, damage);
        fill();
        QByteArray bytes = contents(m_file);
        QVERIFY(bytes.size() > 40000);
        if (damage == "text"_s)
            bytes = QByteArray("These are notes.\n").repeated(1000);
        else if (damage == "header"_s)
            bytes.replace(0, 100, QByteArray(100, '\0'));
        else if (damage == "page"_s)
            bytes.replace(20000, 4096, QByteArray(4096, '\x5a'));
        else if (damage == "cut"_s)
            bytes.truncate(bytes.size() / 2);
        if (damage == "foreign"_s || damage == "newer"_s) {
            sqlite::Database other;
            QVERIFY(other.open(m_file));
            QVERIFY(damage == "newer"_s
                    ? other.exec("UPDATE schema_version SET version = 99")
                    : other.exec("DROP TABLE schema_version; ALTER TABLE device RENAME TO other"));
            other.close();
            bytes = contents(m_file);
        } else if (damage == "folder"_s) {
            QVERIFY(QFile::remove(m_file) && QDir().mkdir(m_file));
        } else {
            write(bytes);
        }

        Store store(m_file);
        QSignalSpy replaced(&store.database, &CloudDatabase::replaced);
        QString device;
        QCOMPARE(store.tables.deviceId(device), ServiceError::None);
        QCOMPARE(device.size(), 36);
        QCOMPARE(replaced.count(), 1);
        QCOMPARE(keptAside(), QStringList{QFileInfo(store.database.keptAside()).fileName()});
        if (damage != "folder"_s)
            QVERIFY2(contents(store.database.keptAside()) == bytes, "what was there is kept as it was");
        QCOMPARE(Store(m_file).database.ready(), ServiceError::None);
        QCOMPARE(keptAside().size(), 1);
    }

    void damageWhileItRuns()
    {
        fill();
        Store store(m_file);
        QSignalSpy replaced(&store.database, &CloudDatabase::replaced);
        QCOMPARE(store.database.ready(), ServiceError::None);
        QByteArray bytes = contents(m_file);
        write(bytes.replace(4096, bytes.size() - 4096, QByteArray(bytes.size() - 4096, '\x5a')));
        store.database.connection().exec("PRAGMA shrink_memory"); // forgets the pages that it has read
        QMap<QString, QString> values;
        QCOMPARE(store.tables.readAll(QLatin1String(user), {}, values), ServiceError::Corrupt);
        QCOMPARE(store.tables.readAll(QLatin1String(user), {}, values), ServiceError::None);
        QCOMPARE(replaced.count(), 1);
        QVERIFY(values.isEmpty());
    }

    void fullDisk()
    {
        Store store(m_file);
        QSignalSpy replaced(&store.database, &CloudDatabase::replaced);
        const QString me = QLatin1String(user);
        QCOMPARE(store.tables.write(me, {{"before"_s, "kept"_s}}), ServiceError::None);
        sqlite::Database &connection = store.database.connection();
        const qint64 pages = connection.number("PRAGMA page_count");
        QVERIFY(connection.exec(qPrintable("PRAGMA max_page_count=%1"_s.arg(pages))));
        const QString much(100000, QLatin1Char('x'));
        QCOMPARE(store.tables.write(me, {{"a"_s, "small"_s}, {"much"_s, much}}), ServiceError::DiskFull);
        QString value;
        QCOMPARE(store.tables.read(me, "a"_s, value), ServiceError::None);
        QVERIFY2(value.isEmpty(), "all or none");
        QCOMPARE(store.tables.read(me, "before"_s, value), ServiceError::None);
        QCOMPARE(value, "kept"_s);
        QVERIFY(connection.exec("PRAGMA max_page_count=100000"));
        QCOMPARE(store.tables.write(me, {{"much"_s, much}}), ServiceError::None);
        QCOMPARE(replaced.count(), 0);
    }

    void migrates()
    {
        constexpr const char *texts[] = {"CREATE TABLE t (a TEXT); INSERT INTO t VALUES ('old')",
            "ALTER TABLE t ADD COLUMN b TEXT; UPDATE t SET b = a || '+'", "not a statement"};
        const std::span<const char *const> all(texts);
        const QString area = "area"_s;
        sqlite::Database database;
        QVERIFY(database.open(m_file));
        QCOMPARE(prepareSchema(database, area, all.first(1)), SchemaState::Ready);
        QCOMPARE(prepareSchema(database, "another"_s, {}), SchemaState::Ready);
        QCOMPARE(prepareSchema(database, area, all.first(2)), SchemaState::Ready);
        QCOMPARE(prepareSchema(database, area, all.first(2)), SchemaState::Ready);
        QCOMPARE(database.number("SELECT count(*) FROM t WHERE b = 'old+'"), qint64(1));
        QCOMPARE(prepareSchema(database, area, all.first(1)), SchemaState::Newer);
        QCOMPARE(prepareSchema(database, area, all), SchemaState::Failed);
        database.clearFailure();
        QCOMPARE(database.number("SELECT version FROM schema_version WHERE area = 'area'"), qint64(2));
    }

private:
    struct Store
    {
        explicit Store(const QString &file) : database(file), tables(database) { }
        CloudDatabase database;
        ServiceTables tables;
    };
    void write(const QByteArray &bytes) const
    {
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    void fill() const; // with enough rows that a page in the middle belongs to them
    QStringList keptAside() const
    {
        return QDir(m_folder->path()).entryList({"cloud.db.damaged*"_s}, QDir::AllEntries);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

void TestDatabase::fill() const
{
    Store store(m_file);
    QMap<QString, QString> values;
    for (int i = 0; i < 2000; ++i)
        values.insert(QString::number(i), QString(50, QLatin1Char('v')));
    QCOMPARE(store.tables.write(QLatin1String(user), values), ServiceError::None);
}

QTEST_GUILESS_MAIN(TestDatabase)
#include "tst_database.moc"

#include "base/posix/mounts.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using zel::posix::DeadPlace;
using zel::posix::deadPlaceOf;

class MountsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void deadPlaces_data()
    {
        QTest::addColumn<QString>("mounts");
        QTest::addColumn<QString>("folder");
        const auto row = [](const char *path, const char *mounts, const char *folder) {
            QTest::newRow(path) << QString::fromLatin1(mounts) << QString::fromLatin1(folder);
        };
        row("nas/a/b", "%1/nas", "");
        row("nas2/a", "", "%1/nas2");
        row("my disk/a", "%1/my disk", "");
        row("home/docs/a", "%1/nas %1/home/docs", ""); // by a link
        row("home/far/a", "%1/nas %1/home/far", "");   // by two, one of them relative
        row("home/near/a", "", "%1/home/near");
        row("home/loop/a", "", "%1/home/loop");
        row("hidden/a", "", "%1/hidden"); // a local one is mounted over a remote one
    }
    // What a hanging look condemns: never more than the mount that can hang.
    void deadPlaces()
    {
        const QTemporaryDir home;
        const QString root = QFileInfo(home.path()).canonicalFilePath();
        const auto in = [&](QString text) { return text.replace(QLatin1String("%1"), root); };
        QVERIFY(QDir().mkpath(root + QStringLiteral("/home")));
        const auto link = [&](const QString &name, const QString &target) {
            return QFile::link(target, root + QStringLiteral("/home/") + name);
        };
        QVERIFY(link(QStringLiteral("docs"), root + QStringLiteral("/nas/docs")));
        QVERIFY(link(QStringLiteral("far"), QStringLiteral("../home/docs/x")));
        QVERIFY(link(QStringLiteral("near"), QStringLiteral("..")));
        QVERIFY(link(QStringLiteral("loop"), QStringLiteral("loop")));
        const std::string table = in(QStringLiteral("21 1 8:1 / / rw shared:1 - ext4 /dev/a rw\n"
                                                    "40 21 0:5 / %1/nas rw - nfs4 s:/x rw\n"
                                                    "41 21 0:6 / %1/my\\040disk rw - cifs s:/y rw\n"
                                                    "42 21 0:7 / %1/hidden rw - nfs s:/z rw\n"
                                                    "43 42 0:8 / %1/hidden rw - tmpfs t rw\n\n"))
                                      .toStdString();
        QFETCH(QString, mounts);
        QFETCH(QString, folder);
        const QString path = root + QLatin1Char('/') + QString::fromLatin1(QTest::currentDataTag());
        const DeadPlace dead = deadPlaceOf(path.toStdString(), table);
        QStringList condemned;
        for (const std::string &mount : dead.mounts)
            condemned.append(QString::fromStdString(mount));
        QCOMPARE(condemned.join(QLatin1Char(' ')), in(mounts));
        QCOMPARE(QString::fromStdString(dead.folder), in(folder));
        QVERIFY(deadPlaceOf("/a", "21 1 0:1 / / rw - nfs s:/ rw\n").mounts.empty());
    }
};

QTEST_GUILESS_MAIN(MountsTest)
#include "tst_mounts.moc"

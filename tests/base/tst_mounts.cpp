#include "base/posix/mounts.h"
#include "support/table.h"

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
        const auto row = zeltest::table<QString, QString>("mounts", "folder");
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
        QVERIFY(QDir().mkpath(root + "/home"_s));
        const auto link = [&](const QString &name, const QString &target) {
            return QFile::link(target, root + "/home/"_s + name);
        };
        QVERIFY(link("docs"_s, root + "/nas/docs"_s));
        QVERIFY(link("far"_s, "../home/docs/x"_s));
        QVERIFY(link("near"_s, ".."_s));
        QVERIFY(link("loop"_s, "loop"_s));
        const std::string table = in("21 1 8:1 / / rw shared:1 - ext4 /dev/a rw\n"
                                     "40 21 0:5 / %1/nas rw - nfs4 s:/x rw\n"
                                     "41 21 0:6 / %1/my\\040disk rw - cifs s:/y rw\n"
                                     "42 21 0:7 / %1/hidden rw - nfs s:/z rw\n"
                                     "43 42 0:8 / %1/hidden rw - tmpfs t rw\n\n"_s)
                                      .toStdString();
        QFETCH(QString, mounts);
        QFETCH(QString, folder);
        const QString path = root + QLatin1Char('/') + QString::fromLatin1(QTest::currentDataTag());
        const DeadPlace dead = deadPlaceOf(path.toStdString(), table);
        QCOMPARE(zeltest::joined(dead.mounts, std::identity()), in(mounts));
        QCOMPARE(QString::fromStdString(dead.folder), in(folder));
        QVERIFY(deadPlaceOf("/a", "21 1 0:1 / / rw - nfs s:/ rw\n").mounts.empty());
    }
};

QTEST_GUILESS_MAIN(MountsTest)
#include "tst_mounts.moc"

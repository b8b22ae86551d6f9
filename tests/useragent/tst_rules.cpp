#include "useragent/deviceaddress.h"
#include "useragent/interfacefacts.h"
#include "useragent/useragenttext.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/resource.h>

using namespace zel::useragent;

Q_DECLARE_METATYPE(zel::useragent::Attachment)

namespace {

// "1 eth0 b w aa": system order, name, then "b"uilt in, "r"emovable or "s"oftware, "w"ired, "a"ir or
// "l"oopback, address.
QVector<InterfaceFact> machine(const QString &description)
{
    QVector<InterfaceFact> facts;
    for (const QString &line : description.split(QLatin1String("; "), Qt::SkipEmptyParts)) {
        const QStringList words = line.split(QLatin1Char(' '));
        InterfaceFact fact;
        fact.index = words.at(0).toInt();
        fact.name = words.at(1);
        fact.attachment = words.at(2) == QLatin1String("b") ? Attachment::BuiltIn
            : words.at(2) == QLatin1String("r")             ? Attachment::Removable
                                                            : Attachment::Software;
        fact.wireless = words.at(3) == QLatin1String("a");
        fact.loopback = words.at(3) == QLatin1String("l");
        fact.address = words.value(4);
        facts.append(fact);
    }
    return facts;
}

} // namespace

class TestRules : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void choice_data();
    void choice();
    void staysOverTime_data();
    void staysOverTime();
    void attachment_data();
    void attachment();
    void texts_data();
    void texts();
    void noSocket();
};

void TestRules::choice_data()
{
    QTest::addColumn<QString>("interfaces");
    QTest::addColumn<QString>("address");
    QTest::newRow("nothing but loopback and virtual machines' ends")
        << "1 lo s l 00:00; 2 VMware_Net s w AA; 3 myVirtualBr b w BB"
        << "";
    QTest::newRow("first wired by the system's order, not by the list's")
        << "9 eth1 b w CC; 3 eth0 b w AA; 5 eth2 b w BB"
        << "AA";
    QTest::newRow("wireless listed first") << "2 wlan0 b a AA; 3 eth0 b w BB"
                                           << "BB";
    QTest::newRow("a docking station beside a wireless card") << "2 usb0 r w AA; 7 wlan0 b a BB"
                                                              << "BB";
    QTest::newRow("unplugged card before software") << "2 docker0 s w AA; 7 usb0 r w BB"
                                                    << "BB";
    QTest::newRow("software only") << "8 veth1 s w BB; 4 br0 s w AA"
                                   << "AA";
    QTest::newRow("tunnels and cards not ready have no address")
        << "2 tun0 s w ; 3 eth0 b w 00:00:00:00:00:00; 4 wlan0 b a AA"
        << "AA";
}

void TestRules::choice()
{
    QFETCH(QString, interfaces);
    QTEST(chooseAddress(machine(interfaces)), "address");
}

void TestRules::staysOverTime_data()
{
    QTest::addColumn<QString>("now");
    QTest::addColumn<QString>("onMachine");
    QTest::addColumn<QString>("address");
    QTest::newRow("a better card came") << "2 eth0 b w BB; 3 wlan0 b a AA"
                                        << "this"
                                        << "AA";
    QTest::newRow("the card is gone") << "2 eth0 b w BB"
                                      << "this"
                                      << "AA";
    QTest::newRow("no card at all") << "1 lo s l 00:00"
                                    << "this"
                                    << "AA";
    QTest::newRow("the settings came from another machine") << "2 eth0 b w BB"
                                                            << "other"
                                                            << "BB";
}

void TestRules::staysOverTime()
{
    QFETCH(QString, now);
    QFETCH(QString, onMachine);
    const RememberedAddress remembered{onMachine, QStringLiteral("AA")};
    QTEST(deviceAddress(machine(now), remembered, QStringLiteral("this")), "address");
}

void TestRules::attachment_data()
{
    QTest::addColumn<QString>("device"); // below /devices; empty: none
    QTest::addColumn<QString>("bus");
    QTest::addColumn<QByteArray>("removable");
    QTest::addColumn<Attachment>("expected");
    QTest::newRow("slot") << "pci0/0000:03"
                          << "pci" << QByteArray() << Attachment::BuiltIn;
    QTest::newRow("USB") << "pci0/usb1/1-2"
                         << "usb" << QByteArray("unknown\n") << Attachment::Removable;
    QTest::newRow("soldered to an inner USB port") << "pci0/usb1/1-3"
                                                   << "usb" << QByteArray("fixed\n") << Attachment::BuiltIn;
    QTest::newRow("docking station on a PCI tunnel")
        << "pci0/0000:40"
        << "pci" << QByteArray("removable\n") << Attachment::Removable;
    QTest::newRow("bridge") << ""
                            << "" << QByteArray() << Attachment::Software;
}

void TestRules::attachment()
{
    QFETCH(QString, device);
    QFETCH(QString, bus);
    QFETCH(QByteArray, removable);
    QTemporaryDir tree;
    const QDir root(tree.path());
    QVERIFY(root.mkpath(QStringLiteral("class/net/if0")) && root.mkpath(QStringLiteral("bus/") + bus));
    if (!device.isEmpty()) {
        const QString place = root.filePath(QStringLiteral("devices/") + device);
        QVERIFY(QDir().mkpath(place + QStringLiteral("/if")));
        QVERIFY(
            QFile::link(root.filePath(QStringLiteral("bus/") + bus), place + QStringLiteral("/subsystem")));
        QFile(place + QStringLiteral("/if")).link(root.filePath(QStringLiteral("class/net/if0/device")));
        QFile file(place + QStringLiteral("/removable"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(removable) == removable.size());
    }
    QTEST(attachmentOf(root.filePath(QStringLiteral("class/net")), QStringLiteral("if0")), "expected");
}

void TestRules::texts_data()
{
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("expected");
    QTest::newRow("id of nothing") << deviceId({}) << "d41d8cd98f00b204e9800998ecf8427e";
    QTest::newRow("padding stays, bytes as they are, URL-safe") << userAgentText(QStringLiteral("%2"),
        QStringLiteral("%1"), QByteArray("\xff\xef\xbe~~~~")) << "ZELUA/1.0 (pc-office:%2; %1:_---fn5-fg==)";
    QTest::newRow("domain gets its dot") << cookieDomain(QStringLiteral("Docs.Example")) << ".docs.example";
    QTest::newRow("domain has its dot") << cookieDomain(QStringLiteral(".docs.example")) << ".docs.example";
}

void TestRules::texts()
{
    QFETCH(QString, made);
    QTEST(made, "expected");
}

void TestRules::noSocket()
{
    rlimit before{};
    QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    QTest::ignoreMessage(QtWarningMsg, "socket: Too many open files");
    ::setrlimit(RLIMIT_NOFILE, &none);
    readInterfaces();
    ::setrlimit(RLIMIT_NOFILE, &before);
}

QTEST_GUILESS_MAIN(TestRules)
#include "tst_rules.moc"

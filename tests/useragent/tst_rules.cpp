#include "support/table.h"
#include "support/temptree.h"
#include "useragent/deviceaddress.h"
#include "useragent/interfacefacts.h"
#include "useragent/useragenttext.h"

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
        fact.attachment = words.at(2) == "b"_s ? Attachment::BuiltIn
            : words.at(2) == "r"_s             ? Attachment::Removable
                                               : Attachment::Software;
        fact.wireless = words.at(3) == "a"_s;
        fact.loopback = words.at(3) == "l"_s;
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
    void choice_data()
    {
        const auto row = zeltest::table<QString, QString>("interfaces", "address");
        row("nothing but loopback and virtual machines' ends",
            "1 lo s l 00:00; 2 VMware_Net s w AA; 3 myVirtualBr b w BB", "");
        row("first wired by the system's order, not by the list's",
            "9 eth1 b w CC; 3 eth0 b w AA; 5 eth2 b w BB", "AA");
        row("wireless listed first", "2 wlan0 b a AA; 3 eth0 b w BB", "BB");
        row("a docking station beside a wireless card", "2 usb0 r w AA; 7 wlan0 b a BB", "BB");
        row("unplugged card before software", "2 docker0 s w AA; 7 usb0 r w BB", "BB");
        row("software only", "8 veth1 s w BB; 4 br0 s w AA", "AA");
        row("tunnels and cards not ready have no address",
            "2 tun0 s w ; 3 eth0 b w 00:00:00:00:00:00; 4 wlan0 b a AA", "AA");
    }
    void choice()
    {
        QFETCH(QString, interfaces);
        QTEST(chooseAddress(machine(interfaces)), "address");
    }

    void staysOverTime_data()
    {
        const auto row = zeltest::table<QString, QString, QString>("now", "onMachine", "address");
        row("a better card came", "2 eth0 b w BB; 3 wlan0 b a AA", "this", "AA");
        row("the card is gone", "2 eth0 b w BB", "this", "AA");
        row("no card at all", "1 lo s l 00:00", "this", "AA");
        row("the settings came from another machine", "2 eth0 b w BB", "other", "BB");
    }
    void staysOverTime()
    {
        QFETCH(QString, now);
        QFETCH(QString, onMachine);
        const RememberedAddress remembered{onMachine, "AA"_s};
        QTEST(deviceAddress(machine(now), remembered, "this"_s), "address");
    }

    void attachment_data()
    {
        // device: below /devices; empty: none
        const auto row = zeltest::table<QString, QString, QByteArray, Attachment>(
            "device", "bus", "removable", "expected");
        row("slot", "pci0/0000:03", "pci", {}, Attachment::BuiltIn);
        row("USB", "pci0/usb1/1-2", "usb", "unknown\n", Attachment::Removable);
        row("soldered to an inner USB port", "pci0/usb1/1-3", "usb", "fixed\n", Attachment::BuiltIn);
        row("docking station on a PCI tunnel", "pci0/0000:40", "pci", "removable\n", Attachment::Removable);
        row("bridge", "", "", {}, Attachment::Software);
    }
    void attachment()
    {
        QFETCH(QString, device);
        QFETCH(QString, bus);
        QFETCH(QByteArray, removable);
        const zeltest::TempTree tree{"class/net/if0/"};
        if (!device.isEmpty()) {
            const QString place = QLatin1String("devices/") + device;
            const QString itsBus = QLatin1String("bus/") + bus;
            tree.make({itsBus + QLatin1Char('/'), place + QLatin1String("/if/")});
            tree.link(itsBus, place + QLatin1String("/subsystem"));
            tree.link(place + QLatin1String("/if"), "class/net/if0/device");
            tree.write(place + QLatin1String("/removable"), removable);
        }
        QTEST(attachmentOf(tree.path("class/net"), "if0"_s), "expected");
    }

    void texts_data()
    {
        const auto row = zeltest::table<QString, QString>("made", "expected");
        row("id of nothing", deviceId({}), "d41d8cd98f00b204e9800998ecf8427e");
        row("padding stays, bytes as they are, URL-safe",
            userAgentText("%2"_s, "%1"_s, QByteArray("\xff\xef\xbe~~~~")),
            "ZELUA/1.0 (pc-office:%2; %1:_---fn5-fg==)");
        row("domain gets its dot", cookieDomain("Docs.Example"_s), ".docs.example");
        row("domain has its dot", cookieDomain(".docs.example"_s), ".docs.example");
    }
    void texts()
    {
        QFETCH(QString, made);
        QTEST(made, "expected");
    }

    void noSocket()
    {
        rlimit before{};
        QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
        const rlimit none{0, before.rlim_max};
        QTest::ignoreMessage(QtWarningMsg, "socket: Too many open files");
        ::setrlimit(RLIMIT_NOFILE, &none);
        readInterfaces();
        ::setrlimit(RLIMIT_NOFILE, &before);
    }
};

QTEST_GUILESS_MAIN(TestRules)
#include "tst_rules.moc"

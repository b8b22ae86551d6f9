#include "base/settingskeys.h"
#include "ksettings.h"
#include "support/temptree.h"
#include "useragent/deviceaddress.h"
#include "useragent/interfacefacts.h"
#include "useragent/kxuseragentutil.h"
#include "useragent/useragenttext.h"

using namespace zel::useragent;

Q_DECLARE_METATYPE(zel::useragent::Attachment)

class TestUserAgent : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void idThroughTheDays()
    {
        if (inNamespace("ip link show lo"_s).exitCode != 0)
            QSKIP("no network namespaces for this user here, or no ip command");
        const QString bridge = "ip link add %1 address %2 type bridge; "_s;
        const QString first = bridge.arg("br0"_s, "02:00:00:00:00:0a"_s);
        const QString machines = bridge.arg("virtual0"_s, "02:00:00:00:00:0b"_s);
        const QString other = bridge.arg("br1"_s, "02:00:00:00:00:0c"_s);
        const QString tell = "exec $probe"_s;
        const QString none = idOf({});
        const QString chosen = idOf("02:00:00:00:00:0A");

        QCOMPARE(inNamespace(tell).lines.value(0), none);
        QCOMPARE(inNamespace(machines + tell).lines.value(0), none);
        QCOMPARE(inNamespace(machines + first + other + tell).lines.value(0), chosen);
        QCOMPARE(inNamespace(other + first + tell).lines.value(0), chosen);
        QCOMPARE(inNamespace(other + tell).lines.value(0), chosen);
        QCOMPARE(inNamespace(tell).lines.value(0), chosen);
    }

    void hostNameIsReadOnce()
    {
        const Run run = inNamespace("printf '%s' '~~~?~?' >/proc/sys/kernel/hostname; exec $probe another"_s);
        if (run.exitCode != 0)
            QSKIP("no host name of its own for this user here");
        QCOMPARE(run.lines.size(), 4);
        QCOMPARE(run.lines.at(1), "ZELUA/1.0 (pc-office:; %1:fn5-P34_)"_s.arg(run.lines.at(0)));
        QCOMPARE(run.lines.at(3), run.lines.at(1));
    }

    void cookie()
    {
        KxUserAgentUtil::setVersion("1.2.3"_s);
        const QString agent = KxUserAgentUtil::getUserAgent();
        QVERIFY2(agent.startsWith("ZELUA/1.0 (pc-office:1.2.3; "_s), qPrintable(agent));
        const QNetworkCookie placeholder = KxUserAgentUtil::getUserAgentCookie();
        QCOMPARE(placeholder.domain(), ".zelbox.invalid"_s);
        QCOMPARE(KxUserAgentUtil::getUserAgentTargetUrl(), QString());
        QCOMPARE(
            QString::fromUtf8(QByteArray::fromBase64(placeholder.value(), QByteArray::Base64UrlEncoding)),
            agent);
        const QDateTime expected = QDateTime::currentDateTimeUtc().addYears(1);
        QVERIFY(qAbs(placeholder.expirationDate().secsTo(expected)) < 60);
        QVERIFY(!placeholder.isSecure());

        configure(zel::keys::UserAgentCookieDomain, "docs.example"_s);
        configure(zel::keys::UserAgentTargetUrl, "https://docs.example/box"_s);
        QCOMPARE(KxUserAgentUtil::getUserAgentCookie().domain(), ".docs.example"_s);
        QCOMPARE(KxUserAgentUtil::getUserAgentCookie().path(), "/"_s);
        QCOMPARE(KxUserAgentUtil::getUserAgentTargetUrl(), "https://docs.example/box"_s);
        configure(zel::keys::UserAgentTargetUrl, "no address"_s);
        QTest::ignoreMessage(QtWarningMsg, "the configured service address is no address");
        QCOMPARE(KxUserAgentUtil::getUserAgentTargetUrl(), QString());
    }

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
        const auto [now, onMachine] = zeltest::row<QString, QString>();
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
        const auto [device, bus, removable] = zeltest::row<QString, QString, QByteArray>();
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

private:
    struct Run
    {
        int exitCode = -1;
        QStringList lines;
    };
    // A shell line with network interfaces and a host name of its own; "$probe" is the program that tells.
    static Run inNamespace(const QString &script)
    {
        QProcess shell;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("probe"_s, QCoreApplication::applicationDirPath() + "/useragent_probe"_s);
        shell.setProcessEnvironment(environment);
        shell.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        shell.start("unshare"_s, {"-rnu"_s, "sh"_s, "-ec"_s, script});
        if (!shell.waitForFinished(30000))
            return {};
        return {shell.exitCode(),
            QString::fromUtf8(shell.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)};
    }
    static QString idOf(const QByteArray &address)
    {
        return QString::fromLatin1(QCryptographicHash::hash(address, QCryptographicHash::Md5).toHex());
    }
    static void configure(QLatin1String key, const QString &value)
    {
        KSettings settings;
        settings.beginGroup(zel::keys::Zelbox);
        settings.setValue(key, value);
        QVERIFY(settings.sync());
    }

    // "1 eth0 b w aa": system order, name, then "b"uilt in, "r"emovable or "s"oftware, "w"ired, "a"ir or
    // "l"oopback, address.
    static QVector<InterfaceFact> machine(const QString &description)
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
};

QTEST_GUILESS_MAIN(TestUserAgent)
#include "tst_useragent.moc"

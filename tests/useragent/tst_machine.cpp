#include "base/settingskeys.h"
#include "ksettings.h"
#include "support/text.h"
#include "useragent/kxuseragentutil.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QProcess>
#include <QtTest>

namespace {

struct Run
{
    int exitCode = -1;
    QStringList lines;
};

// A shell line with network interfaces and a host name of its own; "$probe" is the program that tells.
Run inNamespace(const QString &script)
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

QString idOf(const QByteArray &address)
{
    return QString::fromLatin1(QCryptographicHash::hash(address, QCryptographicHash::Md5).toHex());
}

void configure(QLatin1String key, const QString &value)
{
    KSettings settings;
    settings.beginGroup(zel::keys::Zelbox);
    settings.setValue(key, value);
    QVERIFY(settings.sync());
}

} // namespace

class TestMachine : public QObject
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
};

QTEST_GUILESS_MAIN(TestMachine)
#include "tst_machine.moc"

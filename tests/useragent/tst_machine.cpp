#include "base/settingskeys.h"
#include "ksettings.h"
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
    environment.insert(
        QStringLiteral("probe"), QCoreApplication::applicationDirPath() + QStringLiteral("/useragent_probe"));
    shell.setProcessEnvironment(environment);
    shell.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    shell.start(QStringLiteral("unshare"),
        {QStringLiteral("-rnu"), QStringLiteral("sh"), QStringLiteral("-ec"), script});
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
        if (inNamespace(QStringLiteral("ip link show lo")).exitCode != 0)
            QSKIP("no network namespaces for this user here, or no ip command");
        const QString bridge = QStringLiteral("ip link add %1 address %2 type bridge; ");
        const QString first = bridge.arg(QStringLiteral("br0"), QStringLiteral("02:00:00:00:00:0a"));
        const QString machines = bridge.arg(QStringLiteral("virtual0"), QStringLiteral("02:00:00:00:00:0b"));
        const QString other = bridge.arg(QStringLiteral("br1"), QStringLiteral("02:00:00:00:00:0c"));
        const QString tell = QStringLiteral("exec $probe");
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
        const Run run = inNamespace(
            QStringLiteral("printf '%s' '~~~?~?' >/proc/sys/kernel/hostname; exec $probe another"));
        if (run.exitCode != 0)
            QSKIP("no host name of its own for this user here");
        QCOMPARE(run.lines.size(), 4);
        QCOMPARE(run.lines.at(1), QStringLiteral("ZELUA/1.0 (pc-office:; %1:fn5-P34_)").arg(run.lines.at(0)));
        QCOMPARE(run.lines.at(3), run.lines.at(1));
    }

    void cookie()
    {
        KxUserAgentUtil::setVersion(QStringLiteral("1.2.3"));
        const QString agent = KxUserAgentUtil::getUserAgent();
        QVERIFY2(agent.startsWith(QLatin1String("ZELUA/1.0 (pc-office:1.2.3; ")), qPrintable(agent));
        const QNetworkCookie placeholder = KxUserAgentUtil::getUserAgentCookie();
        QCOMPARE(placeholder.domain(), QStringLiteral(".zelbox.invalid"));
        QCOMPARE(KxUserAgentUtil::getUserAgentTargetUrl(), QString());
        QCOMPARE(
            QString::fromUtf8(QByteArray::fromBase64(placeholder.value(), QByteArray::Base64UrlEncoding)),
            agent);
        const QDateTime expected = QDateTime::currentDateTimeUtc().addYears(1);
        QVERIFY(qAbs(placeholder.expirationDate().secsTo(expected)) < 60);
        QVERIFY(!placeholder.isSecure());

        configure(zel::keys::UserAgentCookieDomain, QStringLiteral("docs.example"));
        configure(zel::keys::UserAgentTargetUrl, QStringLiteral("https://docs.example/box"));
        QCOMPARE(KxUserAgentUtil::getUserAgentCookie().domain(), QStringLiteral(".docs.example"));
        QCOMPARE(KxUserAgentUtil::getUserAgentCookie().path(), QStringLiteral("/"));
        QCOMPARE(KxUserAgentUtil::getUserAgentTargetUrl(), QStringLiteral("https://docs.example/box"));
        configure(zel::keys::UserAgentTargetUrl, QStringLiteral("no address"));
        QTest::ignoreMessage(QtWarningMsg, "the configured service address is no address");
        QCOMPARE(KxUserAgentUtil::getUserAgentTargetUrl(), QString());
    }
};

QTEST_GUILESS_MAIN(TestMachine)
#include "tst_machine.moc"

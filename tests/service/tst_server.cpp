#include "base/posix/unixsocket.h"
#include "service/cloudserver.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <poll.h>
#include <sys/socket.h>

using namespace zel::posix;
using namespace std::chrono_literals;

class TestServer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void keepsClientsAndNoticesThemGo();
    void refusesRequests_data();
    void refusesRequests();
    void finishesWithoutClients();
    void lateClientKeepsTheService();

private:
    UniqueFd connectClient() { return connectUnixNow(m_instance->socketPath()); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SingleInstance> m_instance;
    std::unique_ptr<CloudServer> m_server;
};

void TestServer::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_instance = std::make_unique<SingleInstance>(m_folder->path().toStdString(), "cloud");
    QCOMPARE(m_instance->claim(deadlineIn(5s)), SingleInstance::Claim::Owner);
    m_server = std::make_unique<CloudServer>(*m_instance);
}

void TestServer::cleanup()
{
    m_server.reset();
    m_instance.reset();
}

void TestServer::keepsClientsAndNoticesThemGo()
{
    std::vector<UniqueFd> clients(20);
    for (UniqueFd &client : clients)
        QVERIFY(client = connectClient());
    QTRY_COMPARE(m_server->clientCount(), 20);
    clients.resize(7);
    QTRY_COMPARE(m_server->clientCount(), 7);
    clients.clear();
    QTRY_COMPARE(m_server->clientCount(), 0);
}

void TestServer::refusesRequests_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("one byte") << QByteArray("x");
    QTest::newRow("zero bytes") << QByteArray(100, '\0');
    QTest::newRow("much") << QByteArray(100000, 'x');
}

void TestServer::refusesRequests()
{
    QFETCH(QByteArray, bytes);
    const UniqueFd bad = connectClient();
    const UniqueFd good = connectClient();
    QTRY_COMPARE(m_server->clientCount(), 2);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("not supported")));
    QVERIFY(::send(bad.get(), bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) > 0);
    QTRY_COMPARE(m_server->clientCount(), 1);
    char byte = 0;
    const ssize_t got = ::recv(bad.get(), &byte, 1, 0);
    QVERIFY2(got == 0 || (got < 0 && errno != EAGAIN), "the bad one is closed");
    QCOMPARE(::recv(good.get(), &byte, 1, 0), ssize_t(-1));
    QCOMPARE(errno, EAGAIN); // the good one is open
}

void TestServer::finishesWithoutClients()
{
    QSignalSpy finished(m_server.get(), &CloudServer::finished);
    UniqueFd first = connectClient();
    UniqueFd second = connectClient();
    m_server->finishWithoutClients(50ms);
    QTRY_COMPARE(m_server->clientCount(), 2);
    first.reset();
    QTRY_COMPARE(m_server->clientCount(), 1);
    QVERIFY2(!finished.wait(200), "one is still there");
    second.reset();
    QVERIFY(finished.wait());
    QVERIFY(!connectClient());
    SingleInstance next(m_folder->path().toStdString(), "cloud");
    QCOMPARE(next.claim(deadlineIn(5s)), SingleInstance::Claim::Owner);
}

void TestServer::lateClientKeepsTheService()
{
    QSignalSpy finished(m_server.get(), &CloudServer::finished);
    m_server->finishWithoutClients(0ms);
    // Queued before the loop runs, so the time is up and the client there on the same turn.
    UniqueFd client = connectClient();
    QVERIFY(!finished.wait(100));
    QCOMPARE(m_server->clientCount(), 1);
    client.reset();
    QVERIFY(finished.wait());
}

QTEST_GUILESS_MAIN(TestServer)
#include "tst_server.moc"

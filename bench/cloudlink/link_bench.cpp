// The link as the box uses it, beside a bare exchange of as many bytes: time of a round trip, memory over
// many of them, and what the service costs when nobody asks. A whole-process measurement; prints a table.
//   zelbench_cloudlink [--quick] [--idle SECONDS]
#include "kcloudsvrproxy.h"
#include "pingpong.h"
#include "processfigures.h"

#include "base/posix/deadline.h"
#include "base/posix/runtimedir.h"
#include "base/posix/unixsocket.h"
#include "cloud/wire/message.h"
#include "common_types.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <krt/krt.h>
#include <sched.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

using zel::vela::VelaIpcArg;
using zel::vela::VelaIpcResult;

namespace {

constexpr char Method[] = "getCloudDiskEntryVisible";

VelaIpcArg envelope()
{
    VelaIpcArg arg;
    arg.nameSpace = "KVelaIpcCallObj";
    arg.method = Method;
    return arg;
}

[[noreturn]] void fail(const char *why)
{
    std::fprintf(stderr, "%s\n", why);
    std::exit(1);
}

double percentile(std::vector<double> times, double part)
{
    std::sort(times.begin(), times.end());
    return times.at(std::min(times.size() - 1, size_t(part * double(times.size()))));
}

pid_t servicePid()
{
    const std::string path = zel::posix::openRuntimeDir().path + "/cloud.sock";
    const zel::posix::UniqueFd socket = zel::posix::connectUnixNow(path);
    ucred peer = {};
    socklen_t size = sizeof(peer);
    if (::getsockopt(socket.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0)
        fail("no service");
    return peer.pid;
}

} // namespace

QString krt::dirs::programs()
{
    return QFileInfo(qEnvironmentVariable("ZEL_CLOUD")).path();
}

/// Sends requests and takes the answers, one after another or all at once.
class Asker final : public QObject
{
    Q_OBJECT
public:
    explicit Asker(KCloudSvrProxy &proxy) : m_proxy(proxy) { }

    void ask()
    {
        const VelaIpcArg arg = envelope();
        m_proxy.asynCallEx(QStringLiteral("velaIpcCall"), QArgument<VelaIpcArg>("VelaIpcArg", arg), this,
            QStringLiteral("onAnswer"));
    }
    /// Returns when `count` answers are there, with the time of each round trip in microseconds.
    std::vector<double> oneByOne(int count)
    {
        std::vector<double> times;
        QEventLoop loop;
        QElapsedTimer watch;
        const auto connection = connect(this, &Asker::answered, this, [&] {
            times.push_back(double(watch.nsecsElapsed()) / 1000);
            if (int(times.size()) == count)
                return loop.quit();
            watch.restart();
            ask();
        });
        watch.start();
        ask();
        loop.exec();
        disconnect(connection);
        return times;
    }
    void allAtOnce(int count)
    {
        QEventLoop loop;
        int left = count;
        const auto connection = connect(this, &Asker::answered, this, [&] {
            if (--left == 0)
                loop.quit();
        });
        for (int i = 0; i < count; ++i)
            ask();
        loop.exec();
        disconnect(connection);
    }

public Q_SLOTS:
    void onAnswer(bool ok, const QString &, const zel::vela::VelaIpcResult &result)
    {
        if (!ok || result.state != 0)
            fail("a request was not answered as it should be");
        Q_EMIT answered();
    }

Q_SIGNALS:
    void answered();

private:
    KCloudSvrProxy &m_proxy;
};

static std::vector<double> pingOneByOne(PingPong &floor, int count)
{
    std::vector<double> times;
    QEventLoop loop;
    QElapsedTimer watch;
    const auto connection = QObject::connect(&floor, &PingPong::pong, [&] {
        times.push_back(double(watch.nsecsElapsed()) / 1000);
        if (int(times.size()) == count)
            return loop.quit();
        watch.restart();
        floor.ping();
    });
    watch.start();
    floor.ping();
    loop.exec();
    QObject::disconnect(connection);
    return times;
}

// All on one processor, if `cpu` is not negative: where a wake-up crosses processors, most of the time is the
// machine's for waking a sleeping one, and luck decides which of the two exchanges pays it.
static void keepOn(int cpu, const std::vector<pid_t> &processes)
{
    cpu_set_t set;
    CPU_ZERO(&set);
    for (int i = 0; i < CPU_SETSIZE; ++i) {
        if (cpu < 0 || i == cpu)
            CPU_SET(i, &set);
    }
    for (const pid_t process : processes)
        ::sched_setaffinity(process, sizeof(set), &set);
}

// In turns, so that whatever else the machine does falls on both.
static void compareRoundTrips(Asker &asker, int rounds)
{
    const int request = zel::wire::callFrame("velaIpcCall", 1, envelope()).size();
    PingPong floor(QCoreApplication::applicationFilePath(), request, 60);
    std::vector<double> bare;
    std::vector<double> link;
    pingOneByOne(floor, 1000);
    asker.oneByOne(1000);
    for (int i = 0; i < 10; ++i) {
        const auto a = pingOneByOne(floor, rounds / 10);
        const auto b = asker.oneByOne(rounds / 10);
        bare.insert(bare.end(), a.begin(), a.end());
        link.insert(link.end(), b.begin(), b.end());
    }
    std::printf("round trip, microseconds   p50     p95     p99\n");
    std::printf("  bare exchange          %6.1f  %6.1f  %6.1f\n", percentile(bare, .5), percentile(bare, .95),
        percentile(bare, .99));
    std::printf("  envelope over the link %6.1f  %6.1f  %6.1f\n", percentile(link, .5), percentile(link, .95),
        percentile(link, .99));
    std::printf("  ratio of p50           %6.2f\n", percentile(link, .5) / percentile(bare, .5));
}

template <class Work> static void measure(const char *what, int count, pid_t service, Work work)
{
    QElapsedTimer watch;
    watch.start();
    work();
    const double ms = double(watch.nsecsElapsed()) / 1e6;
    std::printf("%-34s %8.0f ms  %7.0f/s   resident: client %6ld KB, service %6ld KB\n", what, ms,
        count / ms * 1000, ProcessFigures::of(::getpid()).residentKb, ProcessFigures::of(service).residentKb);
}

static void measureIdle(pid_t service, int seconds)
{
    QEventLoop loop;
    QTimer::singleShot(1000, &loop, &QEventLoop::quit); // what the last request left behind ends first
    loop.exec();
    const long before = ProcessFigures::of(service).wakeUps;
    QTimer::singleShot(seconds * 1000, &loop, &QEventLoop::quit);
    loop.exec();
    const ProcessFigures after = ProcessFigures::of(service);
    std::printf("service idle for %d s: %ld wake-ups, %ld KB resident\n", seconds, after.wakeUps - before,
        after.residentKb);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 5 && arguments.at(1) == QLatin1String("--echo"))
        return PingPong::echo(arguments.at(2).toInt(), arguments.at(3).toInt(), arguments.at(4).toInt());
    const bool quick = arguments.contains(QLatin1String("--quick"));
    const int idleAt = arguments.indexOf(QLatin1String("--idle"));
    const int idle = idleAt > 0 ? arguments.value(idleAt + 1).toInt() : quick ? 1 : 10;

    KCloudSvrProxy proxy;
    QEventLoop loop;
    QObject::connect(&proxy, &KCloudSvrProxy::velaInited, &loop, &QEventLoop::quit);
    QTimer patience;
    QObject::connect(&patience, &QTimer::timeout, [] { fail("the service did not start"); });
    patience.start(30000);
    proxy.startVelaProcess(QString());
    loop.exec();
    patience.stop();

    Asker asker(proxy);
    const pid_t service = servicePid();
    keepOn(0, {::getpid(), service});
    std::printf("on one processor\n");
    compareRoundTrips(asker, quick ? 1000 : 20000);
    keepOn(-1, {::getpid(), service});
    std::printf("on any\n");
    compareRoundTrips(asker, quick ? 1000 : 20000);
    const int many = quick ? 1000 : 20000;
    const int pipelined = quick ? 10000 : 100000;
    for (int i = 0; i < 2; ++i)
        measure("one after another", many, service, [&] { asker.oneByOne(many); });
    for (int i = 0; i < 3; ++i)
        measure("all at once", pipelined, service, [&] { asker.allAtOnce(pipelined); });
    measureIdle(service, idle);
    return 0;
}

#include "link_bench.moc"

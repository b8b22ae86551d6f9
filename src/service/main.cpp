#include "base/logging.h"
#include "base/paths.h"
#include "base/posix/exitsignals.h"
#include "base/posix/runtimedir.h"
#include "base/posix/singleinstance.h"
#include "service/cloudservice.h"
#include "service/endbound.h"
#include "service/methods/clouddocuments.h"
#include "service/server/socketactivation.h"
#include "service/serviceoptions.h"
#include "service/store/datafolder.h"

#include <QCoreApplication>
#include <QDir>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using zel::posix::SingleInstance;
using zel::service::CloudDocuments;
using zel::service::CloudServer;

namespace {

constexpr std::chrono::seconds startTime{10};
constexpr std::chrono::seconds graceWithoutClients{5};
constexpr std::chrono::seconds endTime{8}; // below startTime: the next one waits for it

int fail(const std::string &why)
{
    qCCritical(lcService, "%s", why.c_str());
    return 1;
}

// Whoever started us waits for this byte, or for the end of the pipe.
void reportReady(int fd)
{
    if (fd < 0)
        return;
    const char ready = 1;
    if (::write(fd, &ready, sizeof(ready)) != sizeof(ready))
        qCWarning(lcService, "nobody waits for the service to be ready");
    ::close(fd);
}

QString driveFolder(const ServiceOptions &options)
{
    return options.drive.isEmpty() ? CloudDocuments::defaultDrive() : QDir(options.drive).absolutePath();
}

int serve(SingleInstance &instance, const ServiceOptions &options)
{
    // These two go last: the threads that work on the user's data end with `documents`.
    const zel::service::DataFolder data =
        zel::service::claimDataFolder(zel::paths::dataDir(), zel::posix::deadlineIn(startTime));
    if (data.isTaken)
        return fail("another service works on the data of this user still");
    zel::service::EndBound bound;
    zel::service::CloudService service(instance);
    CloudServer &server = service.server();
    CloudDocuments documents({driveFolder(options), CloudDocuments::defaultDriveDatabase()},
        service.database(), service.methods(), server, service.hooks(), &service.subscriptions(),
        [&service] { return service.identity(); });
    service.start();
    // Reading the drive's folders can wait until somebody wants to know.
    QObject::connect(&server, &CloudServer::welcomed, qApp, [&documents] {
        QMetaObject::invokeMethod(
            qApp, [&documents] { documents.start(); }, Qt::QueuedConnection);
    });
    QObject::connect(&server, &CloudServer::finished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    QSocketNotifier exitSignal(zel::posix::catchExitSignals(), QSocketNotifier::Read);
    QObject::connect(&exitSignal, &QSocketNotifier::activated, qApp, [&exitSignal, &server] {
        exitSignal.setEnabled(false);
        server.finish();
    });
    const zel::service::TransferRunner &transfers = documents.transfers();
    if (options.exitWithLastClient)
        server.finishWithoutClients(
            graceWithoutClients, [&transfers] { return !transfers.running().isEmpty(); });
    QObject::connect(&transfers, &zel::service::TransferRunner::idle, &server, &CloudServer::workEnded);
    qCInfo(lcService, "ready");
    reportReady(options.readyFd);
    const int result = QCoreApplication::exec();
    bound.start(endTime);
    const auto starts = instance.holdStarts(zel::posix::deadlineIn(startTime));
    instance.release();
    qCInfo(lcService, "ends");
    return result;
}

int run(const ServiceOptions &options)
{
    zel::posix::UniqueFd listener = zel::service::takeActivationSocket();
    const bool activated = bool(listener);
    if (options.readyFd >= 0 && ::fcntl(options.readyFd, F_SETFD, FD_CLOEXEC) != 0)
        return fail("the descriptor of --ready-fd is not open");
    const zel::posix::RuntimeDir folder = zel::posix::openRuntimeDir();
    if (folder.path.empty())
        return fail(folder.error);
    SingleInstance instance(folder.path, "cloud");
    switch (instance.claimWith(std::move(listener), zel::posix::deadlineIn(startTime))) {
    case SingleInstance::Claim::Owner:
        return serve(instance, options);
    case SingleInstance::Claim::Taken:
        if (activated)
            return fail("a service that was started otherwise runs already; the service manager's socket is "
                        "not served");
        qCInfo(lcService, "a service runs already");
        reportReady(options.readyFd);
        return 0;
    case SingleInstance::Claim::Failed:
        break;
    }
    return fail(instance.error());
}

} // namespace

int main(int argc, char **argv)
{
    // Whoever waits at the other end of a pipe or socket may be gone; writing there must fail, not kill.
    ::signal(SIGPIPE, SIG_IGN);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zelcloud"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZEL_VERSION));
    const ServiceOptions options = ServiceOptions::parse(QCoreApplication::arguments());
    switch (options.mode) {
    case ServiceOptions::Mode::Run:
        return run(options);
    case ServiceOptions::Mode::Help:
        std::fputs(qPrintable(options.text), stdout);
        return 0;
    case ServiceOptions::Mode::Version:
        std::puts("zelcloud " ZEL_VERSION);
        return 0;
    case ServiceOptions::Mode::Invalid:
        std::fprintf(stderr, "zelcloud: %s\n", qPrintable(options.text));
        return 2;
    }
}

#include "app/zelboxentry.h"

#include "app/commandline.h"
#include "app/displayguard.h"
#include "app/zelboxapplication.h"
#include "app/zelboxipc.h"
#include "app/zelboxsetup.h"
#include "base/dbus/mutebus.h"
#include "base/logging.h"
#include "krt/krt.h"

#include <QMetaObject>
#include <optional>
#include <stdexcept>
#include <utility>

using namespace std::chrono_literals;

namespace {

// A daemon that is alive answers within a millisecond, in the turmoil of a login within a few hundred.
constexpr auto PatienceWithBus = 1000ms;

QString copyCommandLine(const wchar_t *cmdline)
{
    // Thrown here rather than by std::wstring, whose text depends on the version of the standard library.
    if (!cmdline)
        throw std::logic_error("basic_string::_M_construct null not valid");
    return QString::fromWCharArray(cmdline);
}

} // namespace

int EntryPoint(int argc, char **argv, const wchar_t *cmdline)
{
    krt::init(
        QStringLiteral("Halvorn"), QStringLiteral("Office"), QStringLiteral("6.0"), QStringLiteral("zelbox"));
    // Before the handler is there: an exit may be the first that it is given, and must not be taken back. A
    // box that is started only to end takes no commands that would end with it.
    ZelBoxIpc::instance()->setLeaving(cmdline && isExit(parseCommandLine(QString::fromWCharArray(cmdline))));
    ZelBoxIpc::instance()->registerTransmission();

    if (zel::sessionbus::giveUpIfMute(PatienceWithBus))
        qCWarning(lcApp, "the session bus does not answer: no tray icon, no screen reader in this run");
    std::optional<DisplayGuard> guard(std::in_place);
    ZelBoxApplicationIndependentProcesses application(argc, argv);
    guard.reset();
    const QString commandLine = copyCommandLine(cmdline);
    if (application.start(commandLine))
        QApplication::exec();
    ZelBoxIpc::instance()->setLeaving(true);
    krt::clear();
    return 0;
}

int execZelBox(const QString &cmdline)
{
    QMetaObject::invokeMethod(
        ZelBoxSetUp::instance(), "slot_onCmdMotify", Qt::QueuedConnection, Q_ARG(QString, cmdline));
    return 0;
}

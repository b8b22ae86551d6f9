#include "base/autostart.h"

#include "base/desktopentry.h"
#include "base/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <optional>

namespace zel {
namespace {

constexpr qint64 LargestEntry = 1 << 18; // bytes

const QString HiddenKey = QStringLiteral("Hidden");
const QString OnlyShowInKey = QStringLiteral("OnlyShowIn");
const QString NotShowInKey = QStringLiteral("NotShowIn");
const QString ExecKey = QStringLiteral("Exec");
const QString TryExecKey = QStringLiteral("TryExec");

// Switches of single desktops beside the standard's.
const QStringList EnabledKeys{
    QStringLiteral("X-GNOME-Autostart-enabled"), QStringLiteral("X-MATE-Autostart-enabled")};

// Empty: there is no file that can be read, or it is too large for an entry.
std::optional<QByteArray> contentOf(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = file.read(LargestEntry + 1);
    return text.size() <= LargestEntry ? std::optional(text) : std::nullopt;
}

bool isProgram(const QString &name)
{
    if (name.startsWith(QLatin1Char('/')))
        return QFileInfo(name).isFile() && QFileInfo(name).isExecutable();
    return !name.isEmpty() && !QStandardPaths::findExecutable(name).isEmpty();
}

} // namespace

AutostartPlaces AutostartPlaces::fromEnvironment(const QString &program)
{
    AutostartPlaces places;
    const QString autostart = QStringLiteral("/autostart");
    places.userFolder = paths::configHome() + autostart;
    const QString system = QFile::decodeName(qgetenv("XDG_CONFIG_DIRS"));
    for (const QString &folder :
        (system.isEmpty() ? QStringLiteral("/etc/xdg") : system).split(QLatin1Char(':'))) {
        if (QDir::isAbsolutePath(folder))
            places.systemFolders.append(QDir::cleanPath(folder) + autostart);
    }
    places.desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    places.program = program;
    return places;
}

QString Autostart::fileName()
{
    return QStringLiteral("org.zelbox.ZelBox.desktop");
}

QString Autostart::userFile() const
{
    return m_places.userFolder + QLatin1Char('/') + fileName();
}

bool Autostart::isOn() const
{
    const std::optional<QByteArray> entry = contentOf(userFile());
    return entry ? wouldStart(*entry) : systemStarts();
}

bool Autostart::systemStarts() const
{
    for (const QString &folder : m_places.systemFolders) {
        if (const std::optional<QByteArray> entry = contentOf(folder + QLatin1Char('/') + fileName()))
            return wouldStart(*entry);
    }
    return false;
}

bool Autostart::wouldStart(const QByteArray &entryText) const
{
    const DesktopEntry entry(entryText);
    if (!entry.isValid() || entry.flag(HiddenKey, false))
        return false;
    for (const QString &key : EnabledKeys) {
        if (!entry.flag(key, true))
            return false;
    }
    if (entry.contains(TryExecKey) && !isProgram(entry.value(TryExecKey)))
        return false;
    return !DesktopEntry::programOf(entry.value(ExecKey)).isEmpty()
        && isForThisDesktop(entry.values(OnlyShowInKey), entry.values(NotShowInKey));
}

bool Autostart::isForThisDesktop(const QStringList &only, const QStringList &never) const
{
    // The first of the desktop's names that one of the lists has decides.
    for (const QString &desktop : m_places.desktops) {
        if (only.contains(desktop))
            return true;
        if (never.contains(desktop))
            return false;
    }
    return only.isEmpty();
}

bool Autostart::setOn(bool on)
{
    if (on == isOn())
        return true;
    if (QFileInfo::exists(userFile()) && !contentOf(userFile()))
        return false; // nobody knows what would be lost
    return (on ? switchOn() : switchOff()) && on == isOn();
}

bool Autostart::switchOn()
{
    const QByteArray text = switchedOn(contentOf(userFile()).value_or(QByteArray()));
    return wouldStart(text) && write(text);
}

// What the user or the desktop's settings wrote beside the switches, such as a delay, stays.
QByteArray Autostart::switchedOn(const QByteArray &text) const
{
    DesktopEntry entry(text);
    entry.remove(HiddenKey);
    for (const QString &key : EnabledKeys) {
        if (entry.contains(key))
            entry.setValue(key, QStringLiteral("true"));
    }
    if (!isForThisDesktop(entry.values(OnlyShowInKey), entry.values(NotShowInKey))) {
        entry.remove(OnlyShowInKey);
        entry.remove(NotShowInKey);
    }
    const auto fill = [&entry](const char *key, const QString &value) {
        if (!entry.contains(QLatin1String(key)))
            entry.setValue(QLatin1String(key), value);
    };
    fill("Type", QStringLiteral("Application"));
    fill("Name", QStringLiteral("ZEL Box"));
    fill("Icon", QStringLiteral("org.zelbox.ZelBox"));
    const bool stale = !isProgram(DesktopEntry::programOf(entry.value(ExecKey)))
        || (entry.contains(TryExecKey) && !isProgram(entry.value(TryExecKey)));
    if (stale) {
        entry.setValue(TryExecKey, m_places.program);
        entry.setValue(
            ExecKey, DesktopEntry::execLine(m_places.program, {QStringLiteral("/from=autostart")}));
    }
    return entry.toText();
}

bool Autostart::switchOff()
{
    const std::optional<QByteArray> ours = contentOf(userFile());
    const bool nothingElse = !ours || *ours == switchedOn({});
    if (nothingElse && !systemStarts())
        return QFile::remove(userFile());
    DesktopEntry entry(ours ? *ours : switchedOn({}));
    entry.setValue(HiddenKey, QStringLiteral("true"));
    return write(entry.toText());
}

// A link may lead to the entry of the application menu, which must stay as it is.
bool Autostart::write(const QByteArray &text) const
{
    if (!QDir().mkpath(m_places.userFolder))
        return false;
    const QString path = userFile();
    if (QFileInfo(path).isSymLink() && !QFile::remove(path))
        return false;
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
}

} // namespace zel

#include "settingsstore.h"

#include "base/logging.h"
#include "base/paths.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace zel::platform {
namespace {

constexpr qint64 MaxFileSize = 8 * 1024 * 1024;

// Below a device there can be no file: a store that reads as empty and reports every write as failed.
const QLatin1String NoFile("/dev/null/zelbox.conf");

struct Store
{
    QString path;
    std::shared_ptr<QSettings> settings;
};

// Never destroyed, because Qt's own tables of open settings files may be gone by then; a post routine of the
// application writes what is pending.
Store &store()
{
    static auto *value = new Store;
    return *value;
}

std::shared_ptr<QSettings> openIni(const QString &path)
{
    auto settings = std::make_shared<QSettings>(path, QSettings::IniFormat);
    settings->setIniCodec("UTF-8");
    return settings;
}

bool setAside(const QString &path, const QString &reason)
{
    const QString kept = zel::paths::keepAside(path);
    if (kept.isEmpty())
        qCWarning(lcPlatform, "settings file is damaged (%ls) and cannot be moved aside; using defaults",
            qUtf16Printable(reason));
    else
        qCWarning(lcPlatform, "settings file was damaged (%ls); kept as %ls", qUtf16Printable(reason),
            qUtf16Printable(QFileInfo(kept).fileName()));
    return !kept.isEmpty();
}

bool refuse(const QString &reason)
{
    qCWarning(lcPlatform, "settings file cannot be used (%ls); using defaults", qUtf16Printable(reason));
    return false;
}

// Qt would make the file readable for others; the mode of one that exists it keeps.
void makePrivate(const QString &path)
{
    QFile file(path);
    if (file.exists() || file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
}

// True when the settings may be read from and written to `path`.
bool prepareFile(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink())
        return true;
    // Opening anything but a regular file may block or change it.
    if (info.exists() && !info.isFile())
        return refuse(QStringLiteral("not a regular file"));
    if (info.size() > MaxFileSize)
        return setAside(path, QStringLiteral("larger than 8 MiB"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(file.errorString());
    const QString damage = settingsDamage(file.read(MaxFileSize + 1));
    return damage.isEmpty() || setAside(path, damage);
}

std::shared_ptr<QSettings> openChecked(const QString &path)
{
    if (!prepareFile(path))
        return openIni(NoFile);
    makePrivate(path);
    auto settings = openIni(path);
    settings->allKeys(); // parses all of it, which is otherwise put off
    if (settings->status() != QSettings::FormatError)
        return settings;
    settings.reset();
    if (!setAside(path, QStringLiteral("format error")))
        return openIni(NoFile);
    makePrivate(path);
    return openIni(path);
}

} // namespace

std::shared_ptr<QSettings> sharedSettings(const QString &path)
{
    Store &current = store();
    if (current.settings && current.path == path)
        return current.settings;
    releaseSettingsStore();
    current = {path, openChecked(path)};
    static const bool registered = (qAddPostRoutine(releaseSettingsStore), true);
    Q_UNUSED(registered)
    return current.settings;
}

void releaseSettingsStore()
{
    if (store().settings)
        store().settings->sync();
    store() = {};
}

} // namespace zel::platform

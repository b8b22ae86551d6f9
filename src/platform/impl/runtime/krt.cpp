#include "krt/krt.h"

#include "base/paths.h"
#include "base/settingskeys.h"
#include "kfileiconprovider.h"
#include "ksettings.h"
#include "messagelog.h"
#include "resourcebundle.h"
#include "rotatingfile.h"
#include "settingsstore.h"

namespace krt {
namespace {

struct Identity
{
    // A host that is no suite program never calls init(); the box is the same there.
    QString organization = QStringLiteral("Halvorn");
    QString product = QStringLiteral("Office");
    QString version = QStringLiteral("6.0");
    QString applicationName = QStringLiteral("zelbox");
};

Identity &identity()
{
    static auto *value = new Identity; // never destroyed, see KAppTranslators
    return *value;
}

QString logFilePath(QString applicationName)
{
    applicationName.replace(QLatin1Char('/'), QLatin1Char('_'));
    return zel::paths::stateDir() + QLatin1Char('/') + applicationName + QLatin1String(".log");
}

} // namespace

void init(const QString &organization, const QString &application, const QString &version,
    const QString &applicationName)
{
    identity() = {organization, application, version, applicationName};
    zel::platform::installMessageLog(logFilePath(applicationName));
}

void clear()
{
    KFileIconProvider::instance()->clear();
    zel::platform::ResourceBundle::drop();
    zel::platform::releaseSettingsStore();
    zel::platform::removeMessageLog();
}

QString organization()
{
    return identity().organization;
}

QString productName()
{
    return identity().product;
}

QString productVersion()
{
    return identity().version;
}

QString applicationName()
{
    return identity().applicationName;
}

QString log::filePath()
{
    return logFilePath(applicationName());
}

bool log::clear()
{
    return zel::platform::RotatingFile(filePath()).clear();
}

bool product::isEnterprise()
{
    static const bool enterprise = [] {
        KSettings settings;
        settings.beginGroup(zel::keys::Plugins);
        settings.beginGroup(zel::keys::Zelbox);
        return settings.value(zel::keys::Enterprise, false).toBool();
    }();
    return enterprise;
}

} // namespace krt

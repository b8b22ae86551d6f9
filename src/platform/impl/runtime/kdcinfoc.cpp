#include "kdcinfoc.h"

#include "base/logging.h"
#include "base/paths.h"
#include "base/settingskeys.h"
#include "ksettings.h"
#include "rotatingfile.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

void enterBoxGroup(KSettings &settings)
{
    settings.beginGroup(zel::keys::Plugins);
    settings.beginGroup(zel::keys::Zelbox);
}

QByteArray toLine(const QString &name, const QMap<QString, QString> &parameters)
{
    QJsonObject values;
    for (auto it = parameters.cbegin(); it != parameters.cend(); ++it)
        values.insert(it.key(), it.value());
    const QJsonObject event{
        {QStringLiteral("time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
        {QStringLiteral("event"), name},
        {QStringLiteral("parameters"), values},
    };
    return QJsonDocument(event).toJson(QJsonDocument::Compact);
}

} // namespace

void KDcInfoC::postGeneralEvent(const QString &name, const QMap<QString, QString> &parameters)
{
    if (!isEnabled())
        return;
    zel::platform::RotatingFile file(filePath());
    if (!file.append(toLine(name, parameters)))
        qCDebug(lcPlatform, "a telemetry event could not be written");
}

bool KDcInfoC::isEnabled()
{
    KSettings settings;
    enterBoxGroup(settings);
    return settings.value(zel::keys::TelemetryEnabled, false).toBool();
}

void KDcInfoC::setEnabled(bool on)
{
    KSettings settings;
    enterBoxGroup(settings);
    settings.setValue(zel::keys::TelemetryEnabled, on);
}

QString KDcInfoC::filePath()
{
    return zel::paths::stateDir() + QLatin1String("/telemetry.jsonl");
}

bool KDcInfoC::clear()
{
    return zel::platform::RotatingFile(filePath()).clear();
}

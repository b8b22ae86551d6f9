#include "ksettings.h"

#include "base/paths.h"
#include "settingsstore.h"

#include <QCoreApplication>
#include <QSettings>

KSettings::KSettings() : m_settings(zel::platform::sharedSettings(filePath())) { }

KSettings::~KSettings() = default;

void KSettings::beginGroup(const QString &group)
{
    m_groups.append(fullKey(group));
}

void KSettings::endGroup()
{
    if (!m_groups.isEmpty())
        m_groups.removeLast();
}

bool KSettings::contains(const QString &key) const
{
    return m_settings->contains(fullKey(key));
}

QVariant KSettings::value(const QString &key, const QVariant &defaultValue) const
{
    return m_settings->value(fullKey(key), defaultValue);
}

void KSettings::setValue(const QString &key, const QVariant &value)
{
    m_settings->setValue(fullKey(key), value);
    // Without an event loop nothing would write it later.
    if (!QCoreApplication::instance())
        m_settings->sync();
}

void KSettings::remove(const QString &key)
{
    m_settings->remove(fullKey(key));
}

QStringList KSettings::childKeys() const
{
    if (m_groups.isEmpty())
        return m_settings->childKeys();
    m_settings->beginGroup(m_groups.constLast());
    const QStringList keys = m_settings->childKeys();
    m_settings->endGroup();
    return keys;
}

bool KSettings::sync()
{
    m_settings->sync();
    return m_settings->status() == QSettings::NoError;
}

QString KSettings::filePath()
{
    return zel::paths::settingsDir() + QLatin1String("/zelbox.conf");
}

QString KSettings::toStorePath(QString path)
{
    return path.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

QString KSettings::fullKey(const QString &key) const
{
    const QString mapped = toStorePath(key);
    return m_groups.isEmpty() ? mapped : m_groups.constLast() + QLatin1Char('/') + mapped;
}

#pragma once

#include "zelplatform_export.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

class QSettings;

/// The suite's settings store: `$XDG_CONFIG_HOME/Halvorn/zelbox.conf` (INI, UTF-8). GUI thread; objects are
/// cheap. A damaged file is moved aside as `zelbox.conf.damaged-<time>`, logged, and replaced by an empty
/// one; an unreadable one leaves the defaults in place. Group and key texts may be registry-like paths
/// ("HKEY_…\A\B"): the one place that maps "\" to "/" is here.
class ZELPLATFORM_EXPORT KSettings
{
public:
    KSettings();
    ~KSettings();
    KSettings(const KSettings &) = delete;
    KSettings &operator=(const KSettings &) = delete;

    void beginGroup(const QString &group); ///< nests
    void endGroup();

    bool contains(const QString &key) const;
    QVariant value(const QString &key, const QVariant &defaultValue = {}) const;
    void setValue(const QString &key, const QVariant &value);
    void remove(const QString &key); ///< a key or a whole group below the current one
    QStringList childKeys() const;
    bool
    sync(); ///< writes now; false when the file cannot be written, or could not be earlier in this process

    static QString filePath();
    static QString toStorePath(
        QString path); ///< "HKEY_CURRENT_USER\SOFTWARE\X" -> "HKEY_CURRENT_USER/SOFTWARE/X"

private:
    std::shared_ptr<QSettings> m_settings;
    QStringList m_groups; // mapped and joined, innermost last

    QString fullKey(const QString &key) const;
};

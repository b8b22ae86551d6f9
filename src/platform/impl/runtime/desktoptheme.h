#pragma once

#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <optional>

namespace zel::platform {

/// What a desktop says of the look of programs.
struct DesktopChoices
{
    std::optional<bool> dark; ///< empty: no preference
    bool highContrast = false;
    bool animations = true;
    qreal textScale = 1; ///< 0.5 to 3

    bool operator==(const DesktopChoices &) const = default;
};

bool isTextScale(qreal scale); ///< one that is in range

/// Values of the settings portal by group and key.
using PortalSettings = QMap<QString, QVariantMap>;

/// Makes sense of the portal's values; those of wrong type or range count as not given.
DesktopChoices choicesFrom(const PortalSettings &settings);

/// Follows the desktop's choices through the settings portal of the session bus. GUI thread. The first answer
/// is always told; without a bus or a portal it is that of a desktop that chooses nothing.
class DesktopTheme : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    void start(); ///< connects to the bus on a worker thread, then asks

Q_SIGNALS:
    void changed(const DesktopChoices &choices);

private Q_SLOTS:
    void onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask();
    void tell();

    PortalSettings m_settings;
    DesktopChoices m_choices;
    bool m_told = false;
};

} // namespace zel::platform

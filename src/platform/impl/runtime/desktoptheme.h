#pragma once

#include <QDBusVariant>
#include <QObject>
#include <optional>

namespace zel::platform {

/// Follows the desktop's choice of light or dark through the settings portal of the session bus. GUI thread;
/// without a bus or a portal nothing is ever told.
class DesktopTheme : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    void start(); ///< connects to the bus on a worker thread, then asks

Q_SIGNALS:
    void changed(std::optional<bool> dark); ///< empty: the desktop has no preference

private Q_SLOTS:
    void onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask();
    void tell(QVariant value);
};

} // namespace zel::platform

#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

class QSettings;

namespace zel::platform {

/// Why `bytes` cannot be a settings file that was written whole; empty when they can.
QString settingsDamage(const QByteArray &bytes);

/// The process's store at `path`: a damaged file is moved aside first, and an unreadable one leaves a store
/// that holds nothing and cannot be written. Both are logged once. GUI thread.
std::shared_ptr<QSettings> sharedSettings(const QString &path);

/// Writes what is pending and forgets the store; the next use opens it again.
void releaseSettingsStore();

} // namespace zel::platform

#pragma once

#include "zelplatform_export.h"

#include <QString>
#include <QStringList>

/// Process-wide set-up of the suite runtime and what it knows of the product. GUI thread.
namespace krt {

/// Sets the identity of the process, opens its log file and installs the Qt message handler that writes to
/// it. Call once, before the application object exists; a second call only changes the identity. Without it
/// the identity is the box's.
ZELPLATFORM_EXPORT void init(const QString &organization, const QString &application, const QString &version,
    const QString &applicationName);

/// Undoes init(): drops cached icons and the installed bundles, restores the message handler, closes the log.
/// Safe without a preceding init(). Call while the application object still lives.
ZELPLATFORM_EXPORT void clear();

ZELPLATFORM_EXPORT QString organization();    ///< "Halvorn" for the box
ZELPLATFORM_EXPORT QString productName();     ///< product family, "Office"
ZELPLATFORM_EXPORT QString productVersion();  ///< "6.0"
ZELPLATFORM_EXPORT QString applicationName(); ///< "zelbox"

namespace dirs {
/// Read-only data of the installation (`<prefix>/share/zelbox`), found from the place of the loaded library.
/// Empty when no such folder exists.
ZELPLATFORM_EXPORT QString office();
/// Additions of this user to the installation: `$XDG_DATA_HOME/zelbox/office`. May not exist.
ZELPLATFORM_EXPORT QString officeHome();
/// The user's data of the organisation: `$XDG_DATA_HOME/zelbox`. Made with mode 0700 on first use.
ZELPLATFORM_EXPORT QString localHalvornHome();
/// Folder of the programs that belong to the installation (where `zelcloud` is). Empty when not found.
ZELPLATFORM_EXPORT QString programs();
} // namespace dirs

namespace log {
ZELPLATFORM_EXPORT QString filePath(); ///< of the newest lines; older ones are in ".1" to ".3" beside it
/// Removes what was logged; the log goes on in a new file. False when something could not be removed.
ZELPLATFORM_EXPORT bool clear();
} // namespace log

namespace product {
/// True when the settings store marks this installation as the enterprise product
/// (key "plugins/zelbox/enterprise"). Read once per process.
ZELPLATFORM_EXPORT bool isEnterprise();
} // namespace product

} // namespace krt

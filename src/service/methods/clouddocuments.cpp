#include "service/methods/clouddocuments.h"

#include "base/paths.h"
#include "service/drive/drivejournal.h"
#include "service/transfer/localdrivesource.h"

#include <QDir>

namespace zel::service {

QString CloudDocuments::defaultDrive()
{
    return QDir::home().filePath(QStringLiteral("ZEL Cloud"));
}

QString CloudDocuments::defaultDriveDatabase()
{
    return paths::dataDir() + QStringLiteral("/drive.db");
}

CloudDocuments::CloudDocuments(const Places &places, CloudDatabase &database, MethodTable &methods,
    Pushes &pushes, ServiceHooks &hooks, const TransferSubscriptions *subscriptions, IdentitySource identity)
    : m_places(places),
      m_roaming(database),
      m_messages(database.connection()),
      m_transfers(database),
      m_drives(localDrives(places.drive, places.driveDatabase)),
      m_quick(m_drives),
      m_bulk(m_drives),
      m_looking(m_drives),
      m_local(m_drives),
      m_runner(m_transfers, m_drives),
      m_events(m_looking, pushes, identity),
      m_localTrash(places.drive),
      m_context{m_quick, m_bulk, m_local, m_events, m_localTrash, pushes, identity,
          [this](vela::CloudItem &item) { m_runner.addTransferState(item); }},
      m_roamingMethods(m_roaming, m_quick, pushes, identity),
      m_transferMethods(m_context, m_transfers, m_runner, subscriptions)
{
    m_roamingMethods.serve(methods);
    m_transferMethods.serve(methods);
    addDriveQueries(methods, m_context);
    addDriveSearch(methods, m_context);
    addThumbnails(methods, m_context);
    addDriveEdits(methods, m_context);
    addDriveBatches(methods, m_context);
    addRemoval(methods, m_context);
    addRecycleMethods(methods, m_context);
    fillHooks(hooks);
    connectParts(database);
    if (hooks.tellMessages)
        keepMessages(hooks);
}

CloudDocuments::~CloudDocuments()
{
    // Before anything that their jobs speak of goes.
    m_runner.stop();
    m_bulk.stop();
    m_looking.stop();
    m_local.stop();
    m_quick.stop();
}

void CloudDocuments::fillHooks(ServiceHooks &hooks)
{
    hooks.cancelTasks = [this](const QStringList &ids) { return m_transferMethods.cancelTasks(ids); };
    hooks.waitingUploads = [this] { return m_transferMethods.waitingUploads(); };
    hooks.driveFolder = [this] { return QDir::cleanPath(m_places.drive); };
    hooks.runningTasks = [this] { return m_transferMethods.runningTasks(); };
    hooks.removeRecords = [this](const QStringList &ids, const QStringList &fileIds,
                              const std::function<void(const QStringList &)> &answer) {
        return m_roamingMethods.removeRecords({ids, fileIds, {}, {}}, answer);
    };
    hooks.reportCloudDoc = [this](const QString &file) {
        const bool isInDrive = driveIdNumber(file) > 0
            || QDir::cleanPath(file).startsWith(QDir::cleanPath(m_places.drive) + QLatin1Char('/'));
        if (isInDrive)
            m_events.check();
        return isInDrive ? wire::ServiceError::None : wire::ServiceError::NotFound;
    };
}

void CloudDocuments::connectParts(CloudDatabase &database)
{
    QObject::connect(&m_events, &DriveEvents::filesGone, &m_roamingMethods,
        [this](const QStringList &ids) { m_roamingMethods.markFiles(ids, true); });
    QObject::connect(&m_events, &DriveEvents::filesCame, &m_roamingMethods,
        [this](const QStringList &ids) { m_roamingMethods.markFiles(ids, false); });
    QObject::connect(&m_roamingMethods, &RoamingMethods::filesRemoved, &m_events, &DriveEvents::check);
    QObject::connect(
        &database, &CloudDatabase::replaced, &m_roamingMethods, [this] { m_roamingMethods.tellReload(); });
    // Emitted in the middle of a use, which must not be nested.
    const auto goOn = [this] {
        if (m_started)
            m_runner.start();
    };
    QObject::connect(&database, &CloudDatabase::opened, &m_runner, goOn, Qt::QueuedConnection);
}

void CloudDocuments::keepMessages(const ServiceHooks &hooks)
{
    m_roaming.setCompanion([this](const RoamingChange &change) { m_messages.follow(change); });
    QObject::connect(
        &m_roamingMethods, &RoamingMethods::told, &m_roamingMethods, [this, tell = hooks.tellMessages] {
            const MessageNews news = m_messages.take();
            if (!news.isEmpty())
                tell(news);
        });
}

void CloudDocuments::start()
{
    m_started = true;
    m_events.start(m_places.drive);
    m_runner.start();
}

} // namespace zel::service

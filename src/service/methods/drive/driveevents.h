#pragma once

#include "service/methods/drive/drivenews.h"
#include "service/methods/drive/driverecords.h"
#include "service/methods/identity.h"

#include <QObject>
#include <QThread>
#include <QTimer>

namespace zel::service {

class DriveThread;
class DriveWatcher;
class Pushes;

/// Tells all clients what changed in the drive, whoever changed it: the service itself, other programs in a
/// folder of this machine, other devices. Main thread. Nothing wakes it while nothing changes, unless there
/// are more folders than can be watched.
class DriveEvents final : public QObject
{
    Q_OBJECT
public:
    static constexpr int MostItems = 200;     ///< told one by one; more are told by their folders
    static constexpr int UnwatchedMs = 60000; ///< after which a drive with too many folders is read again

    DriveEvents(DriveThread &drive, Pushes &pushes, IdentitySource identity);
    ~DriveEvents() override;

    /// Begins to tell; what happened before is not told. `root`: a local drive's folder to watch, else empty.
    void start(const QString &root);
    /// Something may have changed: looks soon, and tells.
    void check();
    /// Where an item that is about to be told as created came from, as NotifyFileCreationArg names it.
    struct Origin
    {
        std::string source;
        std::string localPath;
        std::string taskId;
    };
    void noteOrigin(const QString &id, Origin origin);

Q_SIGNALS:
    void filesGone(const QStringList &ids);
    void filesCame(const QStringList &ids); ///< new, or back from the recycle bin
    void told();                            ///< after the pushes of one look, also when there were none

private:
    struct Look;

    void rescan();
    Look look();
    void tell(const Look &found);
    void tellCreated(const Look &found);
    void tellChanged(const Look &found, const QStringList &ids, std::vector<std::string> fields);
    void tellGone(const Look &found);
    void tellFolders(const Look &found);

    DriveThread &m_drive;
    Pushes &m_pushes;
    const IdentitySource m_identity;
    QThread m_watching; ///< of the watcher, as following many folders takes long
    DriveWatcher *m_watcher = nullptr;
    QTimer m_untilNextLook; ///< until folders that are beyond its limit are looked at again
    QString m_cursor;
    QSet<QString> m_touched; ///< folders that the watcher told of
    bool m_rescan = false;
    bool m_started = false;
    bool m_looking = false;
    bool m_again = false;
    QHash<QString, Origin> m_origins;
};

} // namespace zel::service

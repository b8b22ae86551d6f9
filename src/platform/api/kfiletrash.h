#pragma once

#include "zelplatform_export.h"

#include <QObject>

namespace zel::platform {
class TrashQueue;
}

/// The desktop's trash (freedesktop Trash specification 1.0) for local files. GUI thread; the work happens on
/// a worker thread, requests in their order. Tests put a fake in its place with setInstance().
class ZELPLATFORM_EXPORT KFileTrash : public QObject
{
    Q_OBJECT
public:
    enum class Outcome { Done, Missing, Denied, Exists, Failed };
    Q_ENUM(Outcome)

    using QObject::QObject;

    static KFileTrash *instance();
    static void setInstance(KFileTrash *trash); ///< null restores the real one; not owned

    /// Moves a file or folder into the trash of its file system, never by copying it to another one.
    /// `trashed` follows exactly once.
    virtual void trash(const QString &path);
    /// Brings back what trashed() named `trashId`; never over a file that is there by now (Exists).
    /// `restored` follows exactly once.
    virtual void restore(const QString &trashId);

Q_SIGNALS:
    /// `trashId` is empty unless it is done.
    void trashed(const QString &path, const QString &trashId, KFileTrash::Outcome outcome);
    /// `path`: where it was and is again; also with Exists. Empty when that is not known.
    void restored(const QString &trashId, const QString &path, KFileTrash::Outcome outcome);

private:
    zel::platform::TrashQueue *queue();
    zel::platform::TrashQueue *m_queue = nullptr; ///< child; made on first use
};

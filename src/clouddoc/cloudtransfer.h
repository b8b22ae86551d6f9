#pragma once

#include "clouddoc/clouddocument.h"

/// One file or folder that goes to the drive or comes from it. A value.
struct CloudTransfer
{
    enum class Direction { Up, Down };
    enum class State { Waiting, Running, Paused, Done, Failed, Cancelled };

    QString id;
    QString itemId;   ///< in the drive; of an upload empty until it is done
    QString folderId; ///< of the drive, that it goes to or comes from; may be empty
    QString name;
    QString localPath; ///< of an upload its source, of a download its target
    Direction direction = Direction::Up;
    State state = State::Waiting;
    bool folder = false;
    qint64 doneBytes = 0;
    qint64 totalBytes = 0; ///< 0 when not known yet
    qint64 bytesPerSecond = 0;
    qint64 remainingMs = -1;                   ///< -1 when not known
    qint64 askedAt = 0;                        ///< ms since epoch, UTC
    qint64 changedAt = 0;                      ///< ms since epoch, UTC: when its state changed last
    CloudProblem problem = CloudProblem::None; ///< of State::Failed
    int leftOut = 0; ///< of State::Done: entries of the folder whose names cannot be stored

    bool isActive() const { return state == State::Waiting || state == State::Running; }
    bool hasEnded() const { return state >= State::Done; }
    int percent() const ///< 0 to 100
    {
        if (state == State::Done)
            return 100;
        return totalBytes > 0 ? int(qBound<qint64>(0, doneBytes * 100 / totalBytes, 100)) : 0;
    }
    bool operator==(const CloudTransfer &) const = default;
};
using CloudTransfers = QVector<CloudTransfer>;

Q_DECLARE_METATYPE(CloudTransfer)

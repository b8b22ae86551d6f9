#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

namespace zel::platform {

/// Looks once whether a file can be read, on a thread of its own, because a dead network mount may hold that
/// thread for ever. `done` follows exactly once on the GUI thread, at the latest after the deadline; then it
/// deletes itself.
class FileCheck : public QObject
{
    Q_OBJECT
public:
    enum class Result { Readable, Missing, NotReadable /* or no answer in time */ };

    explicit FileCheck(const QString &path, QObject *parent);

    void start();

Q_SIGNALS:
    void done(zel::platform::FileCheck::Result result);

private:
    void settle(Result result);

    const QString m_path;
    QTimer m_deadline;
    bool m_settled = false;
};

} // namespace zel::platform

#pragma once

#include <QObject>
#include <QString>

namespace zel::platform {

/// Looks once whether a file can be read, on a thread of its own, because a dead network mount may hold that
/// thread for ever. `done` follows exactly once on the GUI thread, at the latest after the deadline; then it
/// deletes itself.
class FileCheck : public QObject
{
    Q_OBJECT
public:
    enum class Result { Readable, Missing, NotReadable /* or no answer in time */ };

    FileCheck(const QString &path, QObject *parent);

    void start();

Q_SIGNALS:
    void done(zel::platform::FileCheck::Result result);

private:
    const QString m_path;
};

} // namespace zel::platform

#include "filecheck.h"

#include "detachedjob.h"

#include <QFile>

#include <cerrno>
#include <memory>
#include <unistd.h>

namespace zel::platform {
namespace {

constexpr std::chrono::seconds Deadline(15); // an automounter may need some

FileCheck::Result look(const QByteArray &path)
{
    if (::access(path.constData(), R_OK) == 0)
        return FileCheck::Result::Readable;
    return errno == ENOENT || errno == ENOTDIR ? FileCheck::Result::Missing : FileCheck::Result::NotReadable;
}

} // namespace

FileCheck::FileCheck(const QString &path, QObject *parent) : QObject(parent), m_path(path) { }

void FileCheck::start()
{
    const auto result = std::make_shared<Result>(Result::NotReadable);
    auto *job = new DetachedJob([result, path = QFile::encodeName(m_path)] { *result = look(path); }, this);
    connect(job, &DetachedJob::done, this, [this, result](bool inTime) {
        deleteLater();
        Q_EMIT done(inTime ? *result : Result::NotReadable); // last: a slot may destroy this
    });
    job->start(Deadline);
}

} // namespace zel::platform

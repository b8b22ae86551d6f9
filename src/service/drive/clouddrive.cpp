#include "clouddrive.h"

#include "localsource.h"

#include <QDateTime>
#include <QFile>
#include <QSaveFile>

#include <sys/stat.h>

namespace zel::service {
namespace {

DriveError fileError(const QFileDevice &file)
{
    DriveError error{DriveError::Kind::Io, QStringLiteral("local file: ") % file.errorString()};
    if (file.error() == QFileDevice::ResourceError)
        error.kind = DriveError::Kind::DiskFull;
    else if (file.error() == QFileDevice::PermissionsError)
        error.kind = DriveError::Kind::Denied;
    return error;
}

} // namespace

DriveResult<DriveItem> CloudDrive::writeFrom(const QString &parentId, const QString &name,
    const QString &source, DriveWriteOptions options, const DriveProgress &progress)
{
    const auto descriptor = openLocalFile(source);
    if (!descriptor)
        return descriptor.error();
    QFile file;
    if (!file.open(descriptor->get(), QIODevice::ReadOnly | QIODevice::Unbuffered))
        return fileError(file);
    if (options.mtime < 0)
        options.mtime = file.fileTime(QFileDevice::FileModificationTime).toMSecsSinceEpoch();
    struct stat status
    {
    };
    if (options.mode < 0 && ::fstat(file.handle(), &status) == 0)
        options.mode = int(status.st_mode & 0777);
    return write(parentId, name, file, options, progress);
}

DriveDone CloudDrive::readTo(const QString &id, const QString &target, const DriveProgress &progress)
{
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return fileError(file);
    DriveDone done = read(id, file, progress);
    if (!done)
        return file.error() == QFileDevice::NoError ? std::move(done) : DriveDone(fileError(file));
    if (!file.commit())
        return fileError(file);
    return DriveOk();
}

} // namespace zel::service

#include "filecheck.h"

#include "base/logging.h"

#include <QFile>
#include <QThread>

#include <atomic>
#include <cerrno>
#include <chrono>
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

FileCheck::FileCheck(const QString &path, QObject *parent) : QObject(parent), m_path(path)
{
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        qCWarning(lcPlatform, "a file system did not answer in time");
        settle(Result::NotReadable);
    });
}

void FileCheck::start()
{
    const auto result = std::make_shared<std::atomic<Result>>(Result::NotReadable);
    auto *thread = QThread::create([result, path = QFile::encodeName(m_path)] { *result = look(path); });
    connect(thread, &QThread::finished, this, [this, result] { settle(*result); });
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    m_deadline.start(Deadline);
    thread->start();
}

void FileCheck::settle(Result result)
{
    if (m_settled)
        return;
    m_settled = true;
    m_deadline.stop();
    Q_EMIT done(result);
    deleteLater();
}

} // namespace zel::platform

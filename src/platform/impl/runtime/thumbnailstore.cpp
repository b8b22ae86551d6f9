#include "thumbnailstore.h"

#include "base/detachedjob.h"

#include <QFile>

#include <algorithm>

namespace zel::platform {
namespace {

constexpr int MostThreads = 4;
constexpr int PictureOverhead = 256; // bytes, about

} // namespace

ThumbnailStore::ThumbnailStore(Reader reader, const ThumbnailLimits &limits, QObject *parent)
    : QObject(parent),
      m_reader(std::move(reader)),
      m_limits(limits),
      m_pictures(limits.bytes),
      m_none(limits.none)
{
}

QImage ThumbnailStore::find(const QString &path, int pixels)
{
    const ThumbnailKey key{path, pixels};
    if (const Picture *picture = m_pictures.object(key)) {
        const QImage image = picture->image;
        if (picture->fresh.hasExpired())
            want(key);
        return image;
    }
    const QDeadlineTimer *none = m_none.object(key);
    if (!none || none->hasExpired())
        want(key);
    return {};
}

void ThumbnailStore::clear()
{
    m_pictures.clear();
    m_none.clear();
    m_waiting.clear();
    m_current = {};
}

void ThumbnailStore::want(const ThumbnailKey &key)
{
    if (key == m_current || key.pixels <= 0 || isLeftOut(key.path))
        return;
    const auto known = std::find(m_waiting.begin(), m_waiting.end(), key);
    if (known != m_waiting.end())
        m_waiting.erase(known);
    else if (int(m_waiting.size()) >= m_limits.waiting)
        m_waiting.erase(m_waiting.begin());
    m_waiting.push_back(key);
    if (!m_job)
        next();
}

void ThumbnailStore::next()
{
    while (!m_job && !m_waiting.empty()) {
        const ThumbnailKey key = m_waiting.back();
        m_waiting.pop_back();
        if (*m_threads < MostThreads && !isLeftOut(key.path)) // otherwise all of them hang
            start(key);
    }
}

void ThumbnailStore::start(const ThumbnailKey &key)
{
    m_current = key;
    const auto image = std::make_shared<QImage>();
    const auto count = m_threads;
    ++*count; // here, as a thread may get its first turn late
    m_job = new DetachedJob(
        [reader = m_reader, key, image, count] {
            *image = reader(key.path, key.pixels);
            --*count;
        },
        this);
    connect(m_job, &DetachedJob::done, this, [this, key, image](bool inTime) {
        m_job = nullptr;
        const bool isWanted = m_current == key;
        m_current = {};
        if (!inTime)
            m_dead.add(QFile::encodeName(key.path).toStdString());
        next();
        if (inTime && isWanted)
            take(key, *image); // last: a slot may do anything
    });
    m_job->start(m_limits.patience);
}

void ThumbnailStore::take(const ThumbnailKey &key, const QImage &image)
{
    const QDeadlineTimer fresh(m_limits.fresh);
    if (image.isNull()) {
        m_pictures.remove(key);
        m_none.insert(key, new QDeadlineTimer(fresh));
        return;
    }
    const Picture *before = m_pictures.object(key);
    const bool isNew = !before || before->image != image;
    m_none.remove(key);
    m_pictures.insert(key, new Picture{image, fresh}, int(image.sizeInBytes()) + PictureOverhead);
    if (isNew)
        Q_EMIT loaded(key.path);
}

bool ThumbnailStore::isLeftOut(const QString &path) const
{
    return !m_dead.isEmpty() && m_dead.contains(QFile::encodeName(path).toStdString());
}

} // namespace zel::platform

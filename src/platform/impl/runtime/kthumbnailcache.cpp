#include "kthumbnailcache.h"

#include "thumbnailfile.h"
#include "thumbnailstore.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

QPointer<KThumbnailCache> &replacement()
{
    static QPointer<KThumbnailCache> fake;
    return fake;
}

} // namespace

KThumbnailCache *KThumbnailCache::instance()
{
    if (replacement())
        return replacement();
    static QPointer<KThumbnailCache> real;
    if (!real)
        real = new KThumbnailCache(QCoreApplication::instance());
    return real;
}

void KThumbnailCache::setInstance(KThumbnailCache *cache)
{
    replacement() = cache;
}

QImage KThumbnailCache::thumbnail(const QString &path, int pixels)
{
    using zel::platform::ThumbnailStore;
    if (!m_store) {
        m_store = new ThumbnailStore(zel::platform::readThumbnail, {}, this);
        connect(m_store, &ThumbnailStore::loaded, this, &KThumbnailCache::loaded);
    }
    return m_store->find(path, pixels);
}

void KThumbnailCache::clear()
{
    if (m_store)
        m_store->clear();
}

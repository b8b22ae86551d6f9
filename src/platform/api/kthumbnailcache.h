#pragma once

#include "zelplatform_export.h"

#include <QImage>
#include <QObject>

namespace zel::platform {
class ThumbnailStore;
}

/// Pictures of documents from the desktop's thumbnail cache (freedesktop thumbnail specification 0.9), read
/// on a worker thread and kept in memory as far as a bounded cache goes. GUI thread. Makes no thumbnails
/// itself.
class ZELPLATFORM_EXPORT KThumbnailCache : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    static KThumbnailCache *instance();
    static void setInstance(KThumbnailCache *cache); ///< for tests; null restores the real one; not owned

    /// The thumbnail of `path` that fits into `pixels` by `pixels` device pixels; null when there is none or
    /// it is not known yet. Then it is looked for, and loaded() follows if there is one; where there is none,
    /// nothing is looked for again for a while. Requests that came last are served first, so that what is on
    /// the screen comes before what was scrolled past.
    virtual QImage thumbnail(const QString &path, int pixels);
    virtual void clear(); ///< forgets everything, to give memory back

Q_SIGNALS:
    void loaded(const QString &path);

private:
    zel::platform::ThumbnailStore *m_store = nullptr; ///< child; made on first use
};

#include "app/memory.h"

#include "kfileiconprovider.h"
#include "krecentfile.h"
#include "kthumbnailcache.h"

#include <QApplication>
#include <QBackingStore>
#include <QPixmapCache>
#include <QWidget>

#include <malloc.h>

namespace {

// A hidden window keeps its pixels, four bytes each. Qt gives the store its size again, and paints all of it,
// on the next show.
void dropPixelsOfHiddenWindows()
{
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() && window->backingStore())
            window->backingStore()->resize({1, 1});
    }
}

} // namespace

void zel::memory::giveBack()
{
    KFileIconProvider::instance()->clear();
    if (KThumbnailCache *thumbnails = KThumbnailCache::instance())
        thumbnails->clear();
    QPixmapCache::clear();
    dropPixelsOfHiddenWindows();
    if (KRecentFileProxy *store = KRecentFileProxy::instance())
        store->releaseMemory();
    ::malloc_trim(0);
}

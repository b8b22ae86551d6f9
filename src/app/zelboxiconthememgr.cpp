#include "app/zelboxiconthememgr.h"

#include "kliteskin.h"

QString ZelBoxIconThemeMgr::fileIconSet() const
{
    return KLiteSkin::resourcePath(QStringLiteral("filetypes"));
}

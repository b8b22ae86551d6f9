#include "app/boxlook.h"

#include "kliteskin.h"
#include "krt/krt.h"

#include <QLibrary>

namespace {

QStringList resourceDirs()
{
    QStringList dirs;
    for (const QString &root :
        {krt::dirs::office(), krt::dirs::officeHome(), krt::dirs::localHalvornHome()}) {
        if (!root.isEmpty())
            dirs.append(root + QStringLiteral("/res/2019zelbox"));
    }
    return dirs;
}

} // namespace

void zel::describeLook()
{
    KLitOfficeInfo info;
    info.resourceDirs = resourceDirs();
    info.skinDescription = QStringLiteral("res/2019zelbox/zelbox.kuip");
    info.productName = krt::productName();
    info.organization = krt::organization();
    info.productVersion = krt::productVersion();
    KLiteSkin::setOfficeInfo(info);
    KLiteSkin::setDefaultBaseSkinInfo(KLiteSkinInfo());
}

void zel::loadSkinLibrary()
{
    const QString skinLibrary = KLiteSkin::resourcePath(QStringLiteral("libzelboxres.so"));
    if (!skinLibrary.isEmpty())
        QLibrary(skinLibrary).load();
}

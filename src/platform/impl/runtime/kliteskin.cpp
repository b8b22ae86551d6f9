#include "kliteskin.h"

#include "base/logging.h"
#include "resourcebundle.h"

#include <QFileInfo>
#include <QResource>
#include <QSettings>

namespace zel::platform {
namespace {

QString &registeredFile()
{
    static auto *file = new QString; // never destroyed, see KAppTranslators
    return *file;
}

} // namespace

bool ResourceBundle::use(const QString &file)
{
    drop();
    if (!QResource::registerResource(file))
        return false;
    registeredFile() = file;
    return true;
}

void ResourceBundle::drop()
{
    if (!registeredFile().isEmpty())
        QResource::unregisterResource(registeredFile());
    registeredFile().clear();
}

} // namespace zel::platform

namespace {

KLitOfficeInfo &office()
{
    static auto *info = new KLitOfficeInfo; // never destroyed, see KAppTranslators
    return *info;
}

KLiteSkinInfo &baseSkin()
{
    static auto *info = new KLiteSkinInfo; // never destroyed, see KAppTranslators
    return *info;
}

// What the caller leaves open, the installed skin description says.
KLiteSkinInfo completed(KLiteSkinInfo info)
{
    if (!info.skinName.isEmpty() && !info.styleClass.isEmpty() && !info.resourceBundle.isEmpty())
        return info;
    const QSettings description(office().skinDescription, QSettings::IniFormat);
    const auto fill = [&description](QString &field, const char *key) {
        if (field.isEmpty())
            field = description.value(QLatin1String("Skin/") + QLatin1String(key)).toString();
    };
    fill(info.skinName, "name");
    fill(info.styleClass, "styleClass");
    fill(info.resourceBundle, "resourceBundle");
    return info;
}

} // namespace

void KLiteSkin::setOfficeInfo(const KLitOfficeInfo &info)
{
    office() = info;
}

const KLitOfficeInfo &KLiteSkin::officeInfo()
{
    return office();
}

void KLiteSkin::setDefaultBaseSkinInfo(const KLiteSkinInfo &info)
{
    baseSkin() = completed(info);
    const QString bundle = resourcePath(baseSkin().resourceBundle);
    if (bundle.isEmpty() || !zel::platform::ResourceBundle::use(bundle))
        qCWarning(lcPlatform,
            "no usable resource bundle %ls in %d resource folders; pictures will be missing",
            qUtf16Printable(baseSkin().resourceBundle), int(office().resourceDirs.size()));
}

const KLiteSkinInfo &KLiteSkin::defaultBaseSkinInfo()
{
    return baseSkin();
}

QString KLiteSkin::resourcePath(const QString &relative)
{
    for (const QString &folder : qAsConst(office().resourceDirs)) {
        const QString path = folder + QLatin1Char('/') + relative;
        if (!relative.isEmpty() && QFileInfo::exists(path))
            return path;
    }
    return {};
}

#include "kfileiconprovider.h"

#include "base/logging.h"
#include "fileclass.h"

#include <QFileInfo>
#include <QSettings>

using namespace zel::platform;

namespace {

constexpr int MaxCachedIcons = 2048; // names without a suffix are cached one by one

QIcon familyIcon(QLatin1String fileClass)
{
    return QIcon(iconFileOfClass(fileClass));
}

} // namespace

KFileIconProvider *KFileIconProvider::instance()
{
    static KFileIconProvider provider;
    return &provider;
}

int KFileIconProvider::initIconItems(const QString &path)
{
    m_items.clear();
    m_icons.clear();
    const QString list = path + QLatin1String("/icons.ini");
    if (!QFileInfo(list).isFile())
        return 0;
    QSettings items(list, QSettings::IniFormat);
    items.beginGroup(QStringLiteral("suffix"));
    const QStringList suffixes = items.childKeys();
    for (const QString &suffix : suffixes) {
        const QString file = path + QLatin1Char('/') + items.value(suffix).toString();
        if (QFileInfo(file).isFile())
            m_items.insert(suffix.toLower(), file);
        else
            qCWarning(lcPlatform, "icon set: no picture for suffix %ls", qUtf16Printable(suffix));
    }
    return m_items.size();
}

QIcon KFileIconProvider::icon(const QString &fileName)
{
    const QString suffix = suffixOf(fileName);
    const QString key = fileName.endsWith(QLatin1Char('/')) ? QStringLiteral("/")
        : suffix.isEmpty() ? QLatin1Char('/') + fileName.section(QLatin1Char('/'), -1)
                           : suffix;
    const auto cached = m_icons.constFind(key);
    if (cached != m_icons.constEnd())
        return *cached;
    if (m_icons.size() >= MaxCachedIcons)
        m_icons.clear();
    return *m_icons.insert(key, findIcon(fileName, suffix));
}

// Suffixes of the family first: for those the MIME database, a large file, need not even be read.
QIcon KFileIconProvider::findIcon(const QString &fileName, const QString &suffix) const
{
    if (fileName.endsWith(QLatin1Char('/')))
        return familyIcon(QLatin1String("folder"));
    if (m_items.contains(suffix)) {
        QIcon own(m_items.value(suffix));
        if (!own.isNull() && !own.pixmap(16).isNull())
            return own;
    }
    QLatin1String fileClass = classOfSuffix(suffix);
    if (fileClass.isEmpty())
        fileClass = classOfMimeType(mimeTypeName(fileName));
    if (!fileClass.isEmpty())
        return familyIcon(fileClass);
    const QMimeType type = m_mime.mimeTypeForFile(fileName, QMimeDatabase::MatchExtension);
    const QIcon themed = QIcon::fromTheme(type.iconName());
    return type.isDefault() || themed.isNull() ? familyIcon(QLatin1String("unknown")) : themed;
}

QString KFileIconProvider::mimeTypeName(const QString &fileName) const
{
    if (fileName.endsWith(QLatin1Char('/')))
        return QStringLiteral("inode/directory");
    return m_mime.mimeTypeForFile(fileName, QMimeDatabase::MatchExtension).name();
}

void KFileIconProvider::clear()
{
    m_icons.clear();
}

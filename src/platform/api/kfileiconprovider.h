#pragma once

#include "zelplatform_export.h"

#include <QHash>
#include <QIcon>
#include <QMimeDatabase>
#include <QString>

/// Icons by file type. GUI thread. Looks at names only, never at files.
/// Order: the icon set given by initIconItems(); the built-in family of SVG icons by class (document, sheet,
/// slides, pdf, text, picture, sound, film, archive, code, folder); the desktop's icon theme by MIME type;
/// the family's blank page. A name that ends in "/" is a folder.
class ZELPLATFORM_EXPORT KFileIconProvider
{
public:
    static KFileIconProvider *instance();

    /// Loads `<path>/icons.ini`: group "suffix", keys are lower-case suffixes, values are image files
    /// relative to `path`. Without that file the desktop's icons and the built-in ones serve. Returns the
    /// number of entries.
    int initIconItems(const QString &path);

    QIcon icon(const QString &fileName); ///< never null; cached per suffix
    QString mimeTypeName(const QString &fileName) const;
    void clear(); ///< drops every cached icon; icon() fills the cache again

private:
    KFileIconProvider() = default;

    QIcon findIcon(const QString &fileName, const QString &suffix) const;

    QMimeDatabase m_mime;
    QHash<QString, QString> m_items; // suffix -> image file
    QHash<QString, QIcon> m_icons;   // suffix, or whole name where it has none -> icon
};

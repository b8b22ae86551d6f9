#pragma once

#include <QString>
#include <QStringList>

/// What the look needs to know of the product. Plain value.
struct KLitOfficeInfo
{
    QStringList resourceDirs; ///< "res/2019zelbox" folders, first found wins
    QString skinDescription;  ///< "res/2019zelbox/zelbox.kuip"
    QString productName;
    QString organization;
    QString productVersion;
};

/// The base skin. Plain value.
struct KLiteSkinInfo
{
    QString skinName = QStringLiteral("ongmani");
    QString styleClass = QStringLiteral("KLiteStyle");
    QString resourceBundle = QStringLiteral("zelbox_res.rcc");
};

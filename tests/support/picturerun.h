#pragma once

#include "kliteskin.h"
#include "klitestyle.h"
#include "kskin.h"

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QPixmap>
#include <QTranslator>
#include <QWidget>

/// Surroundings of a program that paints pictures for people: `<program> <folder> [dark] [<locale>]`, with
/// the box's resources in ZEL_RESOURCES. Makes the look, the language and the names of the files. After the
/// QApplication.
class PictureRun
{
public:
    PictureRun()
    {
        const QStringList arguments = QCoreApplication::arguments();
        const bool dark = arguments.contains(QStringLiteral("dark"));
        const QString locale = arguments.last().contains(QLatin1Char('_')) ? arguments.last() : QString();
        const QString resources = qEnvironmentVariable("ZEL_RESOURCES");
        QApplication::setStyle(new KLiteStyle);
        QApplication::setFont(KLiteStyle::applicationFont());
        KLitOfficeInfo office;
        office.resourceDirs << resources;
        KLiteSkin::setOfficeInfo(office);
        KLiteSkin::setDefaultBaseSkinInfo(KLiteSkinInfo());
        QApplication::setPalette(KLiteStyle::palette(dark));
        KSkin::setTheme(dark ? KSkin::Theme::Dark : KSkin::Theme::Light);
        const QString language = locale.isEmpty() ? QStringLiteral("en") : locale;
        if (m_translator.load(QStringLiteral("zelbox"), resources + QStringLiteral("/../../mui/") + language))
            QCoreApplication::installTranslator(&m_translator);
        if (!locale.isEmpty())
            QLocale::setDefault(QLocale(locale));
        m_folder = arguments.value(1, QStringLiteral("."));
        m_suffix = (dark ? QStringLiteral("-dark") : QString())
            + (locale.isEmpty() ? QString() : QLatin1Char('-') + locale)
            + QStringLiteral("-%1x").arg(qApp->devicePixelRatio());
    }

    QString folder() const { return m_folder; }
    QString suffix() const { return m_suffix; } ///< of every file: "-dark-zh_CN-2x"

private:
    QTranslator m_translator;
    QString m_folder;
    QString m_suffix;
};

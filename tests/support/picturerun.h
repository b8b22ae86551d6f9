#pragma once

#include "kliteskin.h"
#include "klitestyle.h"
#include "klook.h"
#include "krt/krt.h"
#include "kskin.h"
#include "support/testclock.h"

/// A program that paints pictures for people: `<program> <folder> [dark] [2x] [<locale>]`. Makes the
/// application, the look, the language and the time, and gives each file its name, as in
/// "menu-dark-zh_CN-2x.png". The resources are those of the build, or those in the folder that ZEL_RESOURCES
/// names.
class PictureRun
{
public:
    /// `argc` and `argv` outlive it, as they do a QApplication.
    PictureRun(int &argc, char **argv) : m_app(prepared(argc, argv), argv)
    {
        QStringList words = QCoreApplication::arguments().mid(1);
        m_folder = words.isEmpty() ? "."_s : words.takeFirst();
        const bool dark = words.contains("dark"_s);
        const QString locale = words.filter("_"_s).value(0);
        const QString resources =
            qEnvironmentVariable("ZEL_RESOURCES", krt::dirs::office() + "/res/2019zelbox"_s);
        QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
        QApplication::setStyle(new KLiteStyle);
        QApplication::setFont(KLiteStyle::applicationFont());
        KLitOfficeInfo office;
        office.resourceDirs << resources;
        KLiteSkin::setOfficeInfo(office);
        KLiteSkin::setDefaultBaseSkinInfo(KLiteSkinInfo());
        QApplication::setPalette(KLiteStyle::palette(dark));
        KSkin::setTheme(dark ? KSkin::Theme::Dark : KSkin::Theme::Light);
        const QString language = locale.isEmpty() ? "en"_s : locale;
        if (m_translator.load("zelbox"_s, resources + "/../../mui/"_s + language))
            QCoreApplication::installTranslator(&m_translator);
        if (!locale.isEmpty())
            QLocale::setDefault(QLocale(locale));
        m_suffix = (dark ? "-dark"_s : QString()) + (locale.isEmpty() ? QString() : QLatin1Char('-') + locale)
            + "-%1x.png"_s.arg(qApp->devicePixelRatio());
    }

    void save(const zeltest::Text &name, const QPixmap &picture) const
    {
        if (!picture.save(m_folder + QLatin1Char('/') + name.text() + m_suffix))
            qFatal("cannot save %s in %s", qPrintable(name.text()), qPrintable(m_folder));
    }
    /// What `widget` shows once what moves in it has come to rest.
    void save(const zeltest::Text &name, QWidget *widget) const
    {
        QTest::qWait(KSkin::animationDuration(zel::look::Motion) + 80);
        save(name, widget->grab());
    }

private:
    // What has to be known before there is an application.
    static int &prepared(int &argc, char **argv)
    {
        for (int i = 1; i < argc; ++i) {
            if (qstrcmp(argv[i], "2x") == 0)
                qputenv("QT_SCALE_FACTOR", "2");
        }
        return argc;
    }

    QApplication m_app;
    QTranslator m_translator;
    QString m_folder;
    QString m_suffix;
    const zeltest::FixedNow m_now{zeltest::at("2024-03-20 14:30"_s)};
};

#include "krt/kapptranslators.h"
#include "krt/krt.h"
#include "ksettings.h"
#include "support/temptree.h"

using krt::KAppTranslators;

namespace {

const QString Name = "runtimetest"_s;

void chooseLanguage(const QString &language)
{
    KSettings().setValue("plugins/zelbox/language"_s, language);
}

void putCatalogue(const QString &locale)
{
    const QString folder = krt::dirs::officeHome() + "/mui/"_s + locale;
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(QFile::copy(QStringLiteral(TEST_CATALOGUE), folder + QLatin1Char('/') + Name + ".qm"_s));
}

} // namespace

class TranslationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        KAppTranslators::uninstallTranslation(Name);
        QDir(krt::dirs::officeHome()).removeRecursively();
    }

    void languageFinds_data()
    {
        const auto row = zeltest::table<QString, QString, bool>("language", "folder", "found");
        row("language alone", "de_AT.UTF-8", "de", true);
        row("by the territory", "zh-Hans-CN", "zh_CN", true);
        row("by the script", "zh-Hans-CN", "zh_Hans", true);
        row("another territory", "pt_BR", "pt_PT", false);
        row("English", "en_GB", "en", true);
        row("the desktop's, which is C in tests", "", "en", true);
        row("climbs", "../../etc", "de", false);
    }
    void languageFinds()
    {
        const auto [language, folder, found] = zeltest::row<QString, QString, bool>();
        chooseLanguage(language);
        putCatalogue(folder);
        QCOMPARE(KAppTranslators::installTranslation(Name), found);
        QCOMPARE(text(), found ? "Guten Tag"_s : "Hello"_s);
        KAppTranslators::uninstallTranslation(Name);
        QCOMPARE(text(), "Hello"_s);
    }

    void damagedCatalogueIsPassedOver()
    {
        chooseLanguage("de_DE"_s);
        putCatalogue("de"_s);
        zeltest::TempTree().write(
            krt::dirs::officeHome() + "/mui/de_DE/%1.qm"_s.arg(Name), "not a catalogue");
        QVERIFY(KAppTranslators::installTranslation(Name));
        QCOMPARE(text(), "Guten Tag"_s);
    }

private:
    static QString text() { return QCoreApplication::translate("RuntimeTest", "Hello"); }
};

// Static objects remove their translations after the application is gone.
static void uninstallAfterTheApplication(int argc, char **argv)
{
    {
        QCoreApplication app(argc, argv);
        chooseLanguage("de"_s);
        putCatalogue("de"_s);
        KAppTranslators::installTranslation(Name);
    }
    KAppTranslators::uninstallTranslation(Name);
}

int main(int argc, char **argv)
{
    uninstallAfterTheApplication(argc, argv);
    QDir(krt::dirs::officeHome()).removeRecursively();
    QCoreApplication app(argc, argv);
    TranslationsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_translations.moc"

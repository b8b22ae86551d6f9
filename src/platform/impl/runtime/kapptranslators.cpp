#include "krt/kapptranslators.h"

#include "base/settingskeys.h"
#include "krt/krt.h"
#include "ksettings.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>
#include <QLibraryInfo>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

namespace krt {
namespace {

using Translators = QList<QPointer<QTranslator>>;

// By catalogue. The translators are children of the application, which may end first.
QHash<QString, Translators> &installed()
{
    // Never destroyed: the box may ask while static objects go.
    static auto *table = new QHash<QString, Translators>;
    return *table;
}

QString &languageInUse()
{
    static auto *language = new QString; // likewise
    return *language;
}

QStringList wantedLanguages()
{
    KSettings settings;
    settings.beginGroup(zel::keys::Plugins);
    settings.beginGroup(zel::keys::Zelbox);
    const QString chosen = settings.value(zel::keys::Language).toString();
    return chosen.isEmpty() ? QLocale::system().uiLanguages() : QStringList{chosen};
}

// "zh-Hans-CN" -> "zh_Hans_CN", "zh_CN", "zh_Hans", "zh"
QStringList folderNames(QString language)
{
    language = language.section(QLatin1Char('.'), 0, 0).section(QLatin1Char('@'), 0, 0);
    if (language.isEmpty() || language == QLatin1String("C") || language == QLatin1String("POSIX"))
        return {QStringLiteral("en")};
    const QStringList parts = language.replace(QLatin1Char('-'), QLatin1Char('_')).split(QLatin1Char('_'));
    QStringList names{language};
    if (parts.size() == 3)
        names << parts.at(0) + QLatin1Char('_') + parts.at(2) << parts.at(0) + QLatin1Char('_') + parts.at(1);
    names << parts.at(0);
    names.removeDuplicates();
    return names;
}

QTranslator *load(const QString &name, const QString &folder)
{
    // The whole path, because given a folder Qt would go on to try shortened names.
    const QString file = folder + QLatin1Char('/') + name + QLatin1String(".qm");
    if (!QFileInfo::exists(file))
        return nullptr;
    auto *translator = new QTranslator(qApp);
    if (translator->load(file))
        return translator;
    delete translator;
    return nullptr;
}

QTranslator *loadCatalogue(const QString &name, const QString &folderName)
{
    for (const QString &root : {dirs::office(), dirs::officeHome()}) {
        if (root.isEmpty())
            continue;
        if (QTranslator *found = load(name, root + QLatin1String("/mui/") + folderName))
            return found;
    }
    return nullptr;
}

// Qt's own texts (dialog buttons, shortcuts) in the same language.
QTranslator *loadQtCatalogue(const QString &language)
{
    const QString folder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    for (const QString &name : folderNames(language)) {
        if (QTranslator *found = load(QLatin1String("qtbase_") + name, folder))
            return found;
    }
    return nullptr;
}

bool isEnglish(const QString &language)
{
    return folderNames(language).constLast() == QLatin1String("en");
}

Translators loadFirst(const QString &name)
{
    const QStringList languages = wantedLanguages();
    for (const QString &language : languages) {
        for (const QString &folderName : folderNames(language)) {
            // The later installed is asked first, so Qt's own comes before the catalogue.
            QTranslator *catalogue = loadCatalogue(name, folderName);
            if (!catalogue)
                continue;
            languageInUse() = folderName;
            return {loadQtCatalogue(language), catalogue};
        }
        if (isEnglish(language)) // the texts are English already: no less wanted language may take over
            break;
    }
    return {};
}

} // namespace

bool KAppTranslators::installTranslation(const QString &name)
{
    if (!qApp)
        return false;
    uninstallTranslation(name);
    languageInUse().clear();
    const Translators translators = loadFirst(name);
    for (QTranslator *translator : translators) {
        if (translator)
            QCoreApplication::installTranslator(translator);
    }
    installed().insert(name, translators);
    return !translators.isEmpty();
}

void KAppTranslators::uninstallTranslation(const QString &name)
{
    const Translators translators = installed().take(name);
    if (!QCoreApplication::instance())
        return;
    for (QTranslator *translator : translators)
        delete translator; // removes itself from the application
}

QString KAppTranslators::language()
{
    return languageInUse();
}

} // namespace krt

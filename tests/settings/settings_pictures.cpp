// Paints the pages of the settings into PNG files, for people to look at.
// ZEL_RESOURCES=<folder of the resource bundle> [ZEL_CLOUD=<zelcloud>] settings_pictures <folder> [dark]
// [locale]
#include "faults/serviceprocess.h"
#include "kcloudsvrproxy.h"
#include "krt/krt.h"
#include "settings/ui/keyfield.h"
#include "settings/ui/kzelboxcloudsettingsdlg.h"
#include "support/picturerun.h"
#include "widgets/shortcuts.h"

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

namespace {

void waitForLogin(KCloudSvrProxy &cloud)
{
    if (!QTest::qWaitFor([&] { return cloud.isLogined(); }, 5000))
        qWarning("the service does not answer; the cloud page is shown without it");
    QTest::qWait(300); // the space and the folder are told
}

class Pictures
{
public:
    Pictures(const QString &folder, const QString &suffix) : m_folder(folder), m_suffix(suffix) { }

    void save(const QString &name, QWidget *widget) const
    {
        QTest::qWait(250);
        widget->grab().save(m_folder + QLatin1Char('/') + name + m_suffix + QStringLiteral(".png"));
    }

private:
    QString m_folder;
    QString m_suffix;
};

void pages(const Pictures &pictures, KZelBoxCloudSettingsDlg &dialog)
{
    for (const char *page : {"general", "recent", "radar", "sync", "cloud", "privacy", "shortcuts"}) {
        dialog.setParameter(QLatin1String(page));
        pictures.save(QLatin1String(page), &dialog);
    }
    auto *exit = dialog.findChild<KeyField *>(QStringLiteral("window.exit"));
    exit->click();
    pictures.save(QStringLiteral("shortcuts-waiting"), &dialog);
    QTest::keyClick(exit, Qt::Key_W, Qt::ControlModifier);
    zel::Shortcuts::instance()->setKeys(QStringLiteral("page.1"), {});
    pictures.save(QStringLiteral("shortcuts-taken"), &dialog);
    zel::Shortcuts::instance()->resetAll();
    dialog.setParameter(QStringLiteral("privacy"));
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (!button->isVisible() || !button->text().endsWith(QChar(0x2026)) || !button->isEnabled())
            continue;
        button->click();
        pictures.save(QStringLiteral("privacy-clear"), QApplication::activeModalWidget());
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        break;
    }
    dialog.resize(640, 480);
    for (const char *page : {"general", "recent", "cloud", "privacy", "shortcuts"}) {
        dialog.setParameter(QLatin1String(page));
        pictures.save(QLatin1String(page) + QStringLiteral("-small"), &dialog);
    }
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication app(argc, argv);
    const PictureRun run;
    krt::init(
        QStringLiteral("Halvorn"), QStringLiteral("Office"), QStringLiteral("6.0"), QStringLiteral("zelbox"));
    qInfo("so that there is a log");
    KCloudSvrProxy cloud;
    ServiceProcess service;
    if (qEnvironmentVariableIsSet("ZEL_CLOUD") && service.start()) {
        cloud.startVelaProcess({});
        waitForLogin(cloud);
    }
    KSkin skin;
    KZelBoxCloudSettingsDlg dialog(&skin, &cloud);
    dialog.show();
    if (!QTest::qWaitForWindowActive(&dialog))
        qFatal("the window does not show");
    pages(Pictures(run.folder(), run.suffix()), dialog);
    return 0;
}

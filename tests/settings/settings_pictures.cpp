// Paints the pages of the settings, for people to look at (support/picturerun.h). ZEL_CLOUD names the
// service's program; without it the cloud page is shown as it is when nobody answers.
#include "kcloudsvrproxy.h"
#include "settings/ui/keyfield.h"
#include "settings/ui/kzelboxcloudsettingsdlg.h"
#include "support/picturerun.h"
#include "support/serviceprocess.h"
#include "widgets/shortcuts.h"

namespace {

void waitForLogin(KCloudSvrProxy &cloud)
{
    if (!QTest::qWaitFor([&] { return cloud.isLogined(); }, 5000))
        qWarning("the service does not answer; the cloud page is shown without it");
    QTest::qWait(300); // the space and the folder are told
}

void pages(const PictureRun &run, KZelBoxCloudSettingsDlg &dialog)
{
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    for (const char *page :
        {"general", "recent", "radar", "sync", "cloud", "privacy", "shortcuts", "about"}) {
        dialog.setParameter(QLatin1String(page));
        run.save(page, &dialog);
    }
    auto *exit = dialog.findChild<KeyField *>("window.exit"_s);
    exit->click();
    run.save("shortcuts-waiting"_s, &dialog);
    QTest::keyClick(exit, Qt::Key_W, Qt::ControlModifier);
    zel::Shortcuts::instance()->setKeys("page.1"_s, {});
    run.save("shortcuts-taken"_s, &dialog);
    zel::Shortcuts::instance()->resetAll();
    dialog.setParameter("privacy"_s);
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (!button->isVisible() || !button->text().endsWith(QChar(0x2026)) || !button->isEnabled())
            continue;
        button->click();
        run.save("privacy-clear"_s, QApplication::activeModalWidget());
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        break;
    }
    dialog.resize(640, 480);
    for (const char *page : {"general", "recent", "cloud", "privacy", "shortcuts", "about"}) {
        dialog.setParameter(QLatin1String(page));
        run.save(QLatin1String(page) + "-small"_s, &dialog);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const PictureRun run(argc, argv);
    krt::init("Halvorn"_s, "Office"_s, "6.0"_s, "zelbox"_s);
    qInfo("so that there is a log");
    KCloudSvrProxy cloud;
    ServiceProcess service;
    if (qEnvironmentVariableIsSet("ZEL_CLOUD") && service.start()) {
        cloud.startVelaProcess({});
        waitForLogin(cloud);
    }
    KSkin skin;
    KZelBoxCloudSettingsDlg dialog(&skin, &cloud);
    pages(run, dialog);
    return 0;
}

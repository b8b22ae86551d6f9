#include "settings/ui/aboutpage.h"

#include "base/boxmodule.h"
#include "base/version.h"
#include "settings/ui/settingscard.h"
#include "useragent/useragentmodule.h"
#include "widgets/noticebar.h"

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QSysInfo>

namespace {

QString system()
{
    return AboutPage::tr("%1, Qt %2, %3")
        .arg(QSysInfo::prettyProductName(), QLatin1String(qVersion()), QGuiApplication::platformName());
}

// Its library brings the toolkit's network part along, which nothing needs before.
QString userAgent()
{
    const auto userAgentOf = reinterpret_cast<zel::UserAgentFunction>(
        zel::boxModuleFunction(zel::UserAgentModule, zel::UserAgentFunctionName));
    return userAgentOf ? userAgentOf(zel::version()) : QString();
}

} // namespace

AboutPage::AboutPage(QWidget *parent) : SettingsPage(tr("About"), parent)
{
    addProgram();
    addUserAgent();
}

void AboutPage::addProgram()
{
    const QString version = tr("Version %1").arg(zel::version());
    auto *copy = new QPushButton(tr("Copy"), this);
    connect(copy, &QPushButton::clicked, this, [this, version] {
        QApplication::clipboard()->setText(QStringLiteral("ZEL Box\n%1\n%2\n").arg(version, system()));
        notice()->showText(tr("Copied."));
    });
    SettingsCard *card = addCard(tr("This program"));
    card->addRow(tr("ZEL Box"), version, copy);
    card->addRow(tr("System"), system());
}

void AboutPage::addUserAgent()
{
    const QString text = userAgent();
    if (text.isEmpty())
        return;
    SettingsCard *card = addCard(tr("What a server would be told"),
        tr("The version, this computer's name, and a number made from its network card, so that your devices "
           "can "
           "be told apart. Nothing is sent in this version."));
    card->addRow(tr("User agent"), text);
}

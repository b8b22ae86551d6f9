#include "settings/ui/cloudsettingspage.h"

#include "base/paths.h"
#include "base/sizetext.h"
#include "kdocumentopener.h"
#include "settings/ui/confirmdialog.h"
#include "settings/ui/settingchoice.h"
#include "settings/ui/settingscard.h"
#include "widgets/noticebar.h"
#include "widgets/toggle.h"

#include <QPushButton>

using State = CloudAccount::State;
using Bubbles = CloudOptions::Bubbles;

namespace {

QString stateText(State state, bool busy)
{
    if (busy)
        return CloudSettingsPage::tr("One moment…");
    switch (state) {
    case State::Away:
        return CloudSettingsPage::tr(
            "The cloud service is not running. Your documents in the folder stay usable.");
    case State::Asking:
        return CloudSettingsPage::tr("One moment…");
    case State::SignedOut:
        return CloudSettingsPage::tr("Signed out. Recent documents of your devices are not kept together.");
    case State::SignedIn:
        return CloudSettingsPage::tr("Signed in. Everything stays on this computer.");
    }
    return {};
}

QString usedText(const CloudSpace &space)
{
    if (!space.isKnown())
        return CloudSettingsPage::tr("Not known at the moment.");
    return zel::spaceText(space.usedBytes(), space.totalBytes());
}

} // namespace

CloudSettingsPage::CloudSettingsPage(KCloudSvrProxy *cloud, QWidget *parent)
    : SettingsPage(tr("Cloud"), parent),
      m_account(cloud),
      m_options(cloud),
      m_sign(new QPushButton(this)),
      m_open(new QPushButton(tr("Open Folder"), this)),
      m_listed(new Toggle(QString(), this)),
      m_bubbles(new SettingChoice(this))
{
    addAccount();
    addDrive();
    addTransfers();
    addServer();
    connect(&m_account, &CloudAccount::changed, this, &CloudSettingsPage::update);
    connect(&m_account, &CloudAccount::failed, this, &CloudSettingsPage::onFailed);
    connect(m_sign, &QPushButton::clicked, this, &CloudSettingsPage::act);
    connect(m_open, &QPushButton::clicked, this,
        [this] { KDocumentOpener::instance()->open(m_account.folder()); });
    connect(KDocumentOpener::instance(), &KDocumentOpener::opened, this,
        [this](const QString &path, KDocumentOpener::Outcome outcome) {
            if (path == m_account.folder() && outcome != KDocumentOpener::Outcome::Opened)
                notice()->showText(tr("The folder cannot be opened."));
        });
    connect(&m_options, &CloudOptions::changed, this, &CloudSettingsPage::updateOptions);
    connect(&m_options, &CloudOptions::failed, this, [this] {
        notice()->showText(tr("The cloud service did not do it. Please try again."));
        updateOptions();
    });
    connect(m_listed, &Toggle::clicked, &m_options, &CloudOptions::setDriveListed);
    connect(m_bubbles, &SettingChoice::chosen, &m_options,
        [this](const QVariant &wish) { m_options.setBubbles(Bubbles(wish.toInt())); });
    update();
    updateOptions();
}

void CloudSettingsPage::addAccount()
{
    SettingsCard *card = addCard(tr("Account on this computer"));
    m_accountRow = card->addRow(tr("Local account"), QString(), m_sign);
}

void CloudSettingsPage::addDrive()
{
    SettingsCard *card = addCard(tr("Drive"));
    m_folderRow = card->addRow(tr("Folder"), QString(), m_open);
    m_spaceRow = card->addRow(tr("Space"), QString());
    m_copiesRow = card->addRow(tr("Copies kept to open documents faster"), QString());
    m_listedRow = card->addRow(tr("Show in file managers"),
        tr("Among the places at the side of file managers and dialogs."), m_listed);
}

void CloudSettingsPage::addTransfers()
{
    m_bubbles->addItem(tr("Each time"), int(Bubbles::EachTime));
    m_bubbles->addItem(tr("Once a day"), int(Bubbles::OnceADay));
    m_bubbles->addItem(tr("Never"), int(Bubbles::Never));
    SettingsCard *card = addCard(tr("Transfers"));
    m_bubblesRow = card->addRow(tr("Message when transfers have ended"),
        tr("From the desktop, while ZEL Box is not in front."), m_bubbles);
}

void CloudSettingsPage::addServer()
{
    SettingsCard *card = addCard(tr("Server"));
    card->addRow(tr("Cloud server"),
        tr("Connecting a server is not available in this version. Nothing is sent anywhere."));
}

void CloudSettingsPage::update()
{
    const State state = m_account.state();
    const bool known = !m_account.name().isEmpty();
    m_accountRow->setTitle(known ? m_account.name() : tr("Local account"));
    m_accountRow->setExplanation(stateText(state, m_account.isBusy()));
    m_sign->setText(state == State::Away ? tr("Try again")
            : state == State::SignedIn   ? tr("Sign Out")
                                         : tr("Sign In"));
    m_sign->setAccessibleName(m_sign->text());
    m_sign->setEnabled(!m_account.isBusy() && state != State::Asking);
    const QString folder = m_account.folder();
    m_folderRow->setExplanation(
        folder.isEmpty() ? tr("Not known at the moment.") : zel::paths::shown(folder));
    m_open->setEnabled(!folder.isEmpty());
    m_spaceRow->setExplanation(usedText(m_account.space()));
}

void CloudSettingsPage::updateOptions()
{
    m_listed->setChecked(m_options.isDriveListed().value_or(false));
    m_listedRow->setRowEnabled(m_options.isDriveListed().has_value());
    m_bubbles->choose(int(m_options.bubbles().value_or(Bubbles::EachTime)));
    m_bubblesRow->setRowEnabled(m_options.bubbles().has_value());
    m_copiesRow->setExplanation(zel::sizeText(m_options.cacheSize()));
    m_copiesRow->setVisible(m_options.cacheSize() > 0);
}

void CloudSettingsPage::act()
{
    switch (m_account.state()) {
    case State::Away:
        return m_account.startService();
    case State::SignedOut:
        return m_account.signIn();
    case State::SignedIn:
        return m_account.signOut();
    case State::Asking:
        return;
    }
}

void CloudSettingsPage::onFailed(CloudAccount::Problem problem, int waitingUploads)
{
    if (problem == CloudAccount::Problem::UploadsWait)
        askToDropUploads(waitingUploads);
    else
        notice()->showText(tr("The cloud service did not do it. Please try again."));
}

void CloudSettingsPage::askToDropUploads(int count)
{
    auto *dialog = new ConfirmDialog(tr("Sign Out"), tr("Sign out although uploads still wait?"),
        tr("Sign Out and Drop Uploads"), window());
    dialog->addText(tr("%Ln upload(s) will not be done.", nullptr, count));
    connect(dialog, &QDialog::accepted, this, [this] { m_account.signOut(true); });
    dialog->open();
}

QWidget *CloudSettingsPage::control(const QString &name) const
{
    return name == QLatin1String("account") ? m_sign : nullptr;
}

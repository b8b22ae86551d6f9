#include "app/ui/zelboxexitdialog.h"

#include "base/settingskeys.h"
#include "ksettings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

ZelBoxExitDialog::ZelBoxExitDialog(QWidget *parent)
    : BoxDialog(tr("Exit"), tr("Exit ZEL Box?"), parent),
      m_remember(new QCheckBox(tr("Always keep running when the window is closed"), this))
{
    addText(tr(
        "In the background, ZEL Box keeps your list of recent documents current. Start it again to bring its "
        "window back."));
    m_transfers = addText({});
    m_transfers->hide();
    body()->addWidget(m_remember);

    m_exit = buttons()->addButton(tr("Exit"), QDialogButtonBox::DestructiveRole);
    m_background = buttons()->addButton(tr("Keep running"), QDialogButtonBox::AcceptRole);
    buttons()->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(m_exit, &QPushButton::clicked, this, [this] {
        Q_EMIT exitChosen();
        close();
    });
    connect(m_background, &QPushButton::clicked, this, &ZelBoxExitDialog::chooseBackground);
    setExitWanted(false);
}

void ZelBoxExitDialog::setExitWanted(bool wanted)
{
    QPushButton *preferred = wanted ? m_exit : m_background;
    preferred->setDefault(true);
    preferred->setFocus();
}

void ZelBoxExitDialog::tellTransfers(int underWay)
{
    m_transfers->setText(tr(
        "%Ln transfer(s) are under way. They go on after the exit until they are done.", nullptr, underWay));
    m_transfers->setVisible(underWay > 0);
}

void ZelBoxExitDialog::chooseBackground()
{
    if (m_remember->isChecked()) {
        KSettings settings;
        settings.beginGroup(zel::keys::Plugins);
        settings.beginGroup(zel::keys::Zelbox);
        settings.setValue(zel::keys::CloseAction, QStringLiteral("hide"));
    }
    Q_EMIT backgroundChosen();
}

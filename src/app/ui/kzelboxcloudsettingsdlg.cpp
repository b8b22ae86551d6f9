#include "app/ui/kzelboxcloudsettingsdlg.h"

#include "base/settingskeys.h"
#include "kdcinfoc.h"
#include "klitestyle.h"
#include "ksettings.h"
#include "kskin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CloudSettingsWidget::CloudSettingsWidget(KSkin *skin, QWidget *parent)
    : QWidget(parent), m_theme(themeBox(skin)), m_close(closeBox()), m_telemetry(telemetryBox())
{
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(KLiteStyle::dpiScaled(20));
    form->setVerticalSpacing(KLiteStyle::dpiScaled(12));
    form->addRow(tr("Appearance"), m_theme);
    form->addRow(tr("When the window is closed"), m_close);
    form->addRow(tr("Privacy"), m_telemetry);
    auto *cloud = new QLabel(
        tr("Everything stays on this computer. Connecting a cloud server comes with a later version."), this);
    cloud->setWordWrap(true);
    cloud->setForegroundRole(QPalette::PlaceholderText);
    form->addRow(tr("Cloud"), cloud);
}

QComboBox *CloudSettingsWidget::themeBox(KSkin *skin)
{
    auto *box = new QComboBox(this);
    box->setAccessibleName(tr("Appearance"));
    box->addItem(tr("Like the desktop"), int(KSkin::Theme::Auto));
    box->addItem(tr("Light"), int(KSkin::Theme::Light));
    box->addItem(tr("Dark"), int(KSkin::Theme::Dark));
    box->setCurrentIndex(box->findData(int(skin->theme())));
    connect(box, qOverload<int>(&QComboBox::activated), this,
        [box] { KSkin::setTheme(KSkin::Theme(box->currentData().toInt())); });
    return box;
}

QComboBox *CloudSettingsWidget::closeBox()
{
    auto *box = new QComboBox(this);
    box->setAccessibleName(tr("When the window is closed"));
    box->addItem(tr("Keep running if there is a tray, else ask"), QString());
    box->addItem(tr("Keep running"), QStringLiteral("hide"));
    box->addItem(tr("Ask"), QStringLiteral("ask"));
    KSettings settings;
    settings.beginGroup(zel::keys::Plugins);
    settings.beginGroup(zel::keys::Zelbox);
    box->setCurrentIndex(
        qMax(0, box->findData(settings.value(zel::keys::CloseAction, QString()).toString())));
    connect(box, qOverload<int>(&QComboBox::activated), this, [box] {
        KSettings store;
        store.beginGroup(zel::keys::Plugins);
        store.beginGroup(zel::keys::Zelbox);
        store.setValue(zel::keys::CloseAction, box->currentData());
    });
    return box;
}

QCheckBox *CloudSettingsWidget::telemetryBox()
{
    auto *box = new QCheckBox(tr("Write usage events to a file on this computer"), this);
    box->setToolTip(tr("The file never leaves this computer."));
    box->setChecked(KDcInfoC::isEnabled());
    connect(box, &QCheckBox::toggled, this, [](bool on) { KDcInfoC::setEnabled(on); });
    return box;
}

void CloudSettingsWidget::setParameter(const QString &parameter)
{
    if (parameter == QLatin1String("theme"))
        m_theme->setFocus(Qt::OtherFocusReason);
    else if (parameter == QLatin1String("close"))
        m_close->setFocus(Qt::OtherFocusReason);
    else if (parameter == QLatin1String("telemetry"))
        m_telemetry->setFocus(Qt::OtherFocusReason);
}

KZelBoxCloudSettingsDlg::KZelBoxCloudSettingsDlg(KSkin *skin, QWidget *parent)
    : BoxDialog(tr("Settings"), tr("Settings"), parent), m_settings(new CloudSettingsWidget(skin, this))
{
    body()->addWidget(m_settings);
    body()->addStretch(1);
    buttons()->addButton(tr("Close"), QDialogButtonBox::RejectRole)->setDefault(true);
}

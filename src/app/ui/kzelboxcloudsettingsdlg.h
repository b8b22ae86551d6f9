#pragma once

#include "widgets/boxdialog.h"

class KSkin;
class QComboBox;
class QCheckBox;

/// The settings of the box. Changes act at once. GUI thread.
class CloudSettingsWidget : public QWidget
{
    Q_OBJECT
public:
    explicit CloudSettingsWidget(KSkin *skin, QWidget *parent = nullptr);

    /// Puts the focus on the setting that a command names: "theme", "close", "telemetry"; others change
    /// nothing.
    void setParameter(const QString &parameter);

private:
    QComboBox *themeBox(KSkin *skin);
    QComboBox *closeBox();
    QCheckBox *telemetryBox();

    QComboBox *m_theme;
    QComboBox *m_close;
    QCheckBox *m_telemetry;
};

class KZelBoxCloudSettingsDlg : public BoxDialog
{
    Q_OBJECT
public:
    explicit KZelBoxCloudSettingsDlg(KSkin *skin, QWidget *parent = nullptr);

    void setParameter(const QString &parameter) { m_settings->setParameter(parameter); }

private:
    CloudSettingsWidget *m_settings;
};

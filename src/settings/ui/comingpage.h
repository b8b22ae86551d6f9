#pragma once

#include "settings/ui/settingspage.h"

/// Says plainly that there is nothing to set yet, because what it would be for comes with a later version.
class ComingPage final : public SettingsPage
{
    Q_OBJECT
public:
    ComingPage(const QString &title, const QString &illustration, const QString &heading, const QString &text,
        QWidget *parent = nullptr);
};

#pragma once

#include "settings/ui/settingspage.h"

/// Which version this is, and what it would say of itself to a server. GUI thread.
class AboutPage final : public SettingsPage
{
    Q_OBJECT
public:
    explicit AboutPage(QWidget *parent = nullptr);

private:
    void addProgram();
    void addUserAgent();
};

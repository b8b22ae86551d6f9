#include "settings/ui/comingpage.h"

#include "widgets/emptystate.h"

ComingPage::ComingPage(const QString &title, const QString &illustration, const QString &heading,
    const QString &text, QWidget *parent)
    : SettingsPage(title, parent)
{
    addFiller(new EmptyStateWidget(illustration, heading, text, this));
}

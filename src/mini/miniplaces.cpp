#include "mini/miniplaces.h"

#include "base/settingskeys.h"
#include "ksettings.h"

#include <QUrl>

namespace zel::mini::places {
namespace {

struct MiniSettings : KSettings
{
    MiniSettings()
    {
        beginGroup(zel::keys::Plugins);
        beginGroup(zel::keys::Zelbox);
        beginGroup(zel::keys::MiniWindow);
    }
};

// A screen's name may hold characters that part groups.
QString placeKey(const QString &screenKey)
{
    return zel::keys::MiniPlaces + QLatin1Char('/') + QString::fromLatin1(QUrl::toPercentEncoding(screenKey));
}

} // namespace

std::optional<Place> of(const QString &screenKey)
{
    return fromText(MiniSettings().value(placeKey(screenKey)).toString());
}

QString lastScreen()
{
    return MiniSettings().value(zel::keys::MiniScreen).toString();
}

void remember(const QString &screenKey, const Place &place)
{
    MiniSettings settings;
    settings.setValue(zel::keys::MiniScreen, screenKey);
    settings.setValue(placeKey(screenKey), toText(place));
}

bool isPinned()
{
    return MiniSettings().value(zel::keys::MiniPinned).toBool();
}

void setPinned(bool pinned)
{
    MiniSettings().setValue(zel::keys::MiniPinned, pinned);
}

} // namespace zel::mini::places

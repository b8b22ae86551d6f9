#include "cloud/upgradequery.h"

#include <QUrl>

namespace zel::upgrade {
namespace {

QString encoded(const QString &value)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(value));
}

QLatin1String component(Offer offer)
{
    switch (offer) {
    case Offer::Super:
        return QLatin1String("pc_svip");
    case Offer::Plume:
        return QLatin1String("pc_plume");
    }
    return {};
}

} // namespace

QString query(const QString &position, const QString &payconfig, Offer offer)
{
    return QStringLiteral("&position=") + encoded(position)
        + QStringLiteral("&payconfig=%1&component=").arg(encoded(payconfig)) + component(offer);
}

} // namespace zel::upgrade

#pragma once

#include <QString>

/// The query of the page that sells memberships. Pure.
namespace zel::upgrade {

/// The membership that the page offers first.
enum class Offer { Super, Plume };

/// `position`: where in the box the user came from; `payconfig`: the price list, may be empty.
QString query(const QString &position, const QString &payconfig, Offer offer);

} // namespace zel::upgrade

#pragma once

#include <QString>

/// The company that the signed-in user works in; empty for a private account.
struct KCompanyInfoCache
{
    QString companyId;
    QString companyName;

    bool operator==(const KCompanyInfoCache &) const = default;
};

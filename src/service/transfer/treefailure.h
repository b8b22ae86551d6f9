#pragma once

#include "service/drive/driveresult.h"

#include <optional>

namespace zel::service {

/// Keeps the first thing that went wrong in a folder with many files.
class TreeFailure
{
public:
    /// Whether the others would fail too, or are not wanted any longer.
    static bool endsAll(const DriveError &error)
    {
        using Kind = DriveError::Kind;
        return error.kind == Kind::Cancelled || error.kind == Kind::DiskFull || error.kind == Kind::Offline;
    }
    /// True: go on with the others.
    bool take(const DriveError &error)
    {
        if (!m_first || endsAll(error))
            m_first = error;
        return !endsAll(error);
    }
    const std::optional<DriveError> &first() const { return m_first; }

private:
    std::optional<DriveError> m_first;
};

} // namespace zel::service

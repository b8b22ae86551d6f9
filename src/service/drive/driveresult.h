#pragma once

#include <QString>

#include <utility>
#include <variant>

namespace zel::service {

/// Why a drive could not do something.
struct DriveError
{
    enum class Kind {
        NotFound,
        Exists,      ///< the name is taken
        Denied,      ///< permissions, a read-only place, or a step that makes no sense (a folder into itself)
        InvalidName, ///< not a name that the drive can hold
        NotEmpty,
        Changed,  ///< it is no longer the version that was meant
        DiskFull, ///< also a quota or a limit on the size of files
        Io,
        Offline,   ///< the drive cannot be reached at present; trying again later is sensible
        Cancelled, ///< the progress callback said so
    };

    Kind kind = Kind::Io;
    QString text; ///< for the log, without names of documents
};

/// A value or the reason why there is none. Ask before taking either.
template <typename T> class [[nodiscard]] DriveResult
{
public:
    DriveResult(T value) : m_state(std::move(value)) { }
    DriveResult(DriveError error) : m_state(std::move(error)) { }

    explicit operator bool() const { return std::holds_alternative<T>(m_state); }
    T &operator*() { return *std::get_if<T>(&m_state); }
    const T &operator*() const { return *std::get_if<T>(&m_state); }
    T *operator->() { return std::get_if<T>(&m_state); }
    const T *operator->() const { return std::get_if<T>(&m_state); }
    const DriveError &error() const { return *std::get_if<DriveError>(&m_state); }

private:
    std::variant<T, DriveError> m_state;
};

/// For what has no value.
struct DriveOk
{
};
using DriveDone = DriveResult<DriveOk>;

} // namespace zel::service

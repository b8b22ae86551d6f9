#pragma once

/// Where an account that signs in is kept.
enum class AdType {
    Local,   ///< the operating system's user; no server
    Server,  ///< the configured cloud server
    Company, ///< the company's directory behind that server
};

/// Kinds of membership.
enum class VipType { Normal, Super, Plume };

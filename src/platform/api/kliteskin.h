#pragma once

#include "klitofficeinfo.h"
#include "zelplatform_export.h"

/// Look of the process: which resources and which base skin. GUI thread.
class ZELPLATFORM_EXPORT KLiteSkin
{
public:
    static void setOfficeInfo(const KLitOfficeInfo &info);
    static const KLitOfficeInfo &officeInfo();

    /// Registers the skin's resource bundle from the first resource folder that has it (logged when none
    /// has), and remembers the skin for KSkin. A second call replaces the first.
    static void setDefaultBaseSkinInfo(const KLiteSkinInfo &info);
    static const KLiteSkinInfo &defaultBaseSkinInfo();

    /// First existing `<resource folder>/<relative>`; empty when none exists.
    static QString resourcePath(const QString &relative);
};

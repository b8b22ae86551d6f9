#include "kskin.h"

#include "skinstate.h"

KSkin::KSkin(QObject *parent) : QObject(parent)
{
    zel::platform::SkinState::instance().add(this);
}

KSkin::~KSkin()
{
    zel::platform::SkinState::instance().remove(this);
}

bool KSkin::isDark()
{
    return zel::platform::SkinState::instance().isDark();
}

KSkin::Theme KSkin::theme()
{
    return zel::platform::SkinState::instance().theme();
}

void KSkin::setTheme(Theme theme)
{
    zel::platform::SkinState::instance().setTheme(theme);
}

bool KSkin::highContrast()
{
    return zel::platform::SkinState::instance().desktop().highContrast;
}

bool KSkin::animationsEnabled()
{
    return zel::platform::SkinState::instance().desktop().animations;
}

int KSkin::animationDuration(int ms)
{
    return animationsEnabled() ? ms : 0;
}

qreal KSkin::textScale()
{
    return zel::platform::SkinState::instance().desktop().textScale;
}

#include "mainwindow/ui/windowplacement.h"

#include "base/settingskeys.h"
#include "klitestyle.h"
#include "ksettings.h"
#include "mainwindow/windowgeometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace keys = zel::keys;

namespace {

zel::geometry::ScreenState screenState(const QScreen &primary)
{
    zel::geometry::ScreenState state{primary.geometry(), primary.availableGeometry(), 0};
    for (const QScreen *each : QGuiApplication::screens())
        state.totalWidth += each->geometry().width();
    return state;
}

// Where and how large the screens are in the window's own unit.
QString screensText()
{
    QStringList texts{QString::number(KLiteStyle::dpiFactor())};
    for (const QScreen *each : QGuiApplication::screens()) {
        const QRect area = each->geometry();
        texts
            << QStringLiteral("%1x%2@%3,%4").arg(area.width()).arg(area.height()).arg(area.x()).arg(area.y());
    }
    return texts.join(QLatin1Char(' '));
}

} // namespace

bool WindowPlacement::isNormal() const
{
    return !m_window.isMaximized() && !m_window.isMinimized() && !m_window.isFullScreen();
}

QRect WindowPlacement::normalRect() const
{
    if (m_restoredRect.isValid())
        return m_restoredRect;
    if (isNormal())
        return m_window.geometry();
    const QRect normal = m_window.normalGeometry();
    return normal.isValid() ? normal : m_window.geometry();
}

void WindowPlacement::onShown()
{
    if (isNormal())
        m_restoredRect = QRect();
}

void WindowPlacement::save() const
{
    const QRect normal = normalRect();
    KSettings settings;
    settings.beginGroup(keys::ApplicationSettings);
    settings.setValue(keys::WindowPosX, normal.left());
    settings.setValue(keys::WindowPosY, normal.top());
    settings.setValue(keys::WindowWidth, normal.width());
    settings.setValue(keys::WindowHeight, normal.height());
    settings.setValue(keys::WindowIsMaximized, m_window.isMaximized());
    settings.setValue(keys::WindowScreens, screensText());
    settings.endGroup();
}

void WindowPlacement::restore()
{
    const QScreen *primary = QGuiApplication::primaryScreen();
    if (!primary)
        return;
    const zel::geometry::ScreenState screen = screenState(*primary);
    zel::geometry::StoredPlacement stored;
    KSettings settings;
    settings.beginGroup(keys::ApplicationSettings);
    if (settings.contains(keys::WindowPosX)) {
        const auto number = [&](QLatin1String key, int otherwise) {
            return settings.value(key, otherwise).toInt();
        };
        stored.normal = zel::geometry::storedRect(number(keys::WindowPosX, m_window.x()),
            number(keys::WindowPosY, m_window.y()), number(keys::WindowWidth, m_window.width()),
            number(keys::WindowHeight, m_window.height()), screen);
        stored.maximized = settings.value(keys::WindowIsMaximized, false).toBool();
        const QString screens = settings.value(keys::WindowScreens).toString();
        stored.screensChanged = !screens.isEmpty() && screens != screensText();
    }
    const zel::geometry::Placement placement = zel::geometry::restore(stored, m_window.size(), screen);
    m_window.setUpdatesEnabled(false);
    m_window.resize(placement.normal.size());
    m_window.move(placement.normal.topLeft());
    m_restoredRect = QRect(placement.normal.topLeft(), m_window.size());
    if (placement.maximized)
        m_window.setWindowState(m_window.windowState() | Qt::WindowMaximized);
    m_window.setUpdatesEnabled(true);
}

void WindowPlacement::takeOver(const WindowPlacement &other)
{
    m_window.setGeometry(other.normalRect());
    m_restoredRect = m_window.geometry();
}

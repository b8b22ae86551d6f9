#include "widgets/filechooser.h"

#include "base/dbus/filechooserportal.h"
#include "widgets/localfiledialog.h"

#include <QGuiApplication>
#include <QWindow>
#include <utility>

namespace {

// As portals name windows. On Wayland that takes a protocol of its own; the desktop's window is on its own
// there.
QString portalName(const QWidget *window)
{
    if (QGuiApplication::platformName() != QLatin1String("xcb") || !window->windowHandle())
        return {};
    return QStringLiteral("x11:") + QString::number(window->windowHandle()->winId(), 16);
}

} // namespace

void FileChooser::ask(const zel::FileQuestion &question, QWidget *over, Then then)
{
    if (!over->findChild<FileChooser *>(QString(), Qt::FindDirectChildrenOnly))
        (new FileChooser(question, over, std::move(then)))->askDesktop();
}

FileChooser::FileChooser(const zel::FileQuestion &question, QWidget *over, Then then)
    : QObject(over), m_question(question), m_over(over), m_then(std::move(then))
{
}

void FileChooser::askDesktop()
{
    auto *portal = new zel::FileChooserPortal(this);
    connect(portal, &zel::FileChooserPortal::answered, this, &FileChooser::take);
    connect(portal, &zel::FileChooserPortal::unavailable, this, [this, portal] {
        portal->deleteLater();
        askOurselves();
    });
    portal->ask(m_question, portalName(m_over->window()));
}

void FileChooser::askOurselves()
{
    auto *dialog = new LocalFileDialog(m_question, m_over);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &LocalFileDialog::chosen, this, &FileChooser::take);
    connect(dialog, &QDialog::rejected, this, [this] { take({}); });
    dialog->open();
}

// Last: it may take down the window.
void FileChooser::take(const QStringList &paths)
{
    deleteLater();
    if (const Then then = std::exchange(m_then, {}); then && !paths.isEmpty())
        then(paths);
}

// The module behind programsmodule.h, with the desktop-entry and MIME association code of GIO.

#include "programs/programsmodule.h"

#include <QFile>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <algorithm>
#include <memory>

namespace zel::platform {
namespace {

struct Release
{
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename T> using Owned = std::unique_ptr<T, Release>;

constexpr const char *OwnProgram = "zelbox";

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

bool isBox(GAppInfo *info)
{
    const QString program = QFile::decodeName(g_app_info_get_executable(info));
    return program.mid(program.lastIndexOf(QLatin1Char('/')) + 1) == QLatin1String(OwnProgram);
}

QString iconNameOf(GAppInfo *info)
{
    GIcon *icon = g_app_info_get_icon(info); // not owned
    if (icon && G_IS_THEMED_ICON(icon))
        return text(g_themed_icon_get_names(G_THEMED_ICON(icon))[0]);
    if (!icon || !G_IS_FILE_ICON(icon))
        return {};
    const std::unique_ptr<char, decltype(&g_free)> path(
        g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))), &g_free);
    return path ? QFile::decodeName(path.get()) : QString();
}

void add(KProgramList &programs, GAppInfo *info, bool isDefault)
{
    const QString id = text(g_app_info_get_id(info));
    const auto isSame = [&](const KProgram &program) { return program.id == id; };
    if (id.isEmpty() || !g_app_info_should_show(info) || isBox(info)
        || std::any_of(programs.cbegin(), programs.cend(), isSame))
        return;
    programs.append({id, text(g_app_info_get_display_name(info)), iconNameOf(info), isDefault});
}

KProgramList programsFor(const QString &mimeType)
{
    KProgramList programs;
    const std::unique_ptr<char, decltype(&g_free)> type(
        g_content_type_from_mime_type(mimeType.toUtf8().constData()), &g_free);
    if (!type)
        return programs;
    if (const Owned<GAppInfo> standard{g_app_info_get_default_for_type(type.get(), FALSE)})
        add(programs, standard.get(), true);
    GList *all = g_app_info_get_all_for_type(type.get()); // those for its very type come first
    for (GList *entry = all; entry; entry = entry->next)
        add(programs, G_APP_INFO(entry->data), false);
    g_list_free_full(all, g_object_unref);
    return programs;
}

// What started the box is not what starts this program.
Owned<GAppLaunchContext> launchContext()
{
    Owned<GAppLaunchContext> context(g_app_launch_context_new());
    for (const char *name :
        {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT"})
        g_app_launch_context_unsetenv(context.get(), name);
    return context;
}

QString launch(const QString &programId, const QString &path)
{
    const Owned<GDesktopAppInfo> info(g_desktop_app_info_new(programId.toUtf8().constData()));
    const std::unique_ptr<char, decltype(&g_free)> uri(
        g_filename_to_uri(QFile::encodeName(path).constData(), nullptr, nullptr), &g_free);
    if (!info || !uri)
        return QStringLiteral("there is no such program");
    GList uris = {uri.get(), nullptr, nullptr};
    GError *error = nullptr;
    if (g_app_info_launch_uris(G_APP_INFO(info.get()), &uris, launchContext().get(), &error))
        return {};
    const QString why = text(error->message);
    g_error_free(error);
    return why;
}

} // namespace
} // namespace zel::platform

extern "C" Q_DECL_EXPORT const zel::platform::ProgramsModule *ZEL_PROGRAMS_SYMBOL()
{
    static const zel::platform::ProgramsModule module = {zel::platform::programsFor, zel::platform::launch};
    return &module;
}

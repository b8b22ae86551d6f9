#include "kcoreapplication.h"

#include "klitestyle.h"
#include "krt/krt.h"
#include "kthreadtiming.h"
#include "quvlite/kasynctask.h"
#include "skinstate.h"

#include <QOpenGLContext>
#include <utility>

namespace {

KCoreApplication *application()
{
    return qobject_cast<KCoreApplication *>(QCoreApplication::instance());
}

constexpr char GlVariable[] = "QT_XCB_GL_INTEGRATION";

// Nothing here paints with OpenGL, but the X11 plugin loads a driver for it, which costs more time and memory
// than the whole box. It reads the variable when it is first asked what the driver can do, so it is asked at
// once: programs that the box starts must not inherit the variable, and it has to go before there are threads
// that may read it.
class WithoutGl
{
public:
    static void begin()
    {
        s_set = !qEnvironmentVariableIsSet(GlVariable);
        if (s_set)
            qputenv(GlVariable, "none");
    }
    static void end()
    {
        if (!std::exchange(s_set, false))
            return;
        QOpenGLContext::supportsThreadedOpenGL();
        qunsetenv(GlVariable);
    }

private:
    static inline bool s_set = false;
};

// What has to be said before QApplication's constructor runs.
int &prepared(int &argc)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // Whole pixel ratios; the rest of a fractional scale stays in the logical dpi, and so in
    // KLiteStyle::dpiFactor(). Many X servers tell some dots more than 96, which as a pixel ratio of 1.0005
    // would blur every edge.
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
    QApplication::setDesktopFileName(QStringLiteral("org.zelbox.ZelBox"));
    QApplication::setStyle(new KLiteStyle); // the desktop's own style is not even loaded then
    WithoutGl::begin();
    return argc;
}

} // namespace

// The product family is the runtime's; the application shows its own name.
KCoreApplication::KCoreApplication(int &argc, char **argv, const QString &applicationName,
    const QString & /*product*/, const QString &version)
    : QApplication(prepared(argc), argv)
{
    WithoutGl::end();
    setApplicationName(applicationName);
    setApplicationDisplayName(QStringLiteral("ZEL Box"));
    setApplicationVersion(version);
    setOrganizationName(krt::organization());
    setQuitOnLastWindowClosed(false);
    zel::platform::SkinState::instance().adoptPlatformPalette();
}

KCoreApplication::~KCoreApplication()
{
    delete m_scheduler; // tasks may use what the application's other children offer
}

quvlite::KAsyncScheduler *KCoreApplication::asyncScheduler()
{
    KCoreApplication *app = application();
    if (!app)
        return nullptr;
    if (!app->m_scheduler)
        app->m_scheduler = new quvlite::KAsyncScheduler(app);
    return app->m_scheduler;
}

KThreadTiming *KCoreApplication::getThreadTiming()
{
    KCoreApplication *app = application();
    if (!app)
        return nullptr;
    if (!app->m_timing)
        app->m_timing = new KThreadTiming(app);
    return app->m_timing;
}

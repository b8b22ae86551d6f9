#pragma once

#include "zelplatform_export.h"

#include <QApplication>

class KThreadTiming;
namespace quvlite {
class KAsyncScheduler;
}

/// The suite's application class: a QApplication with the suite's identity, style, high-DPI rules, task
/// scheduler and start-up timing. The last closed window does not end it.
class ZELPLATFORM_EXPORT KCoreApplication : public QApplication
{
    Q_OBJECT
public:
    KCoreApplication(int &argc, char **argv, const QString &applicationName, const QString &product,
        const QString &version);
    ~KCoreApplication() override;

    /// The task scheduler of this process; null without a KCoreApplication (in a foreign host).
    static quvlite::KAsyncScheduler *asyncScheduler();
    /// The start-up timing; null without a KCoreApplication.
    static KThreadTiming *getThreadTiming();

private:
    quvlite::KAsyncScheduler *m_scheduler = nullptr;
    KThreadTiming *m_timing = nullptr;
};

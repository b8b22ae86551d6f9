#pragma once

#include "zelplatform_export.h"

#include <QObject>

/// Opens local documents with the desktop's default program. GUI thread; nothing here blocks.
/// Tests put a fake in its place with setInstance().
class ZELPLATFORM_EXPORT KDocumentOpener : public QObject
{
    Q_OBJECT
public:
    enum class Outcome { Opened, Missing, NotReadable, NoProgram };
    Q_ENUM(Outcome)

    using QObject::QObject;

    static KDocumentOpener *instance();
    static void setInstance(KDocumentOpener *opener); ///< null restores the real one; not owned

    /// Checks the file on a worker thread, then asks the desktop to open it. `opened` follows exactly once.
    virtual void open(const QString &path);
    /// Shows the file selected in the file manager (org.freedesktop.FileManager1), else opens its folder.
    virtual void reveal(const QString &path);

Q_SIGNALS:
    void opened(const QString &path, KDocumentOpener::Outcome outcome);
};

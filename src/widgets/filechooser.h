#pragma once

#include "base/filequestion.h"

#include <QObject>
#include <functional>

class QWidget;

/// Asks a person for files or a folder of this computer: by the desktop's own window, where its portal has
/// one, else by the box's (LocalFileDialog). Either way no file system that hangs holds up the box. GUI
/// thread; lives until it is answered.
class FileChooser final : public QObject
{
    Q_OBJECT
public:
    using Then = std::function<void(const QStringList &paths)>;

    /// Over the window of `over`, with which it goes; nothing happens while one is open for it already.
    /// `then` is called once, with one path at least, or never when the person cancels.
    static void ask(const zel::FileQuestion &question, QWidget *over, Then then);

private:
    FileChooser(const zel::FileQuestion &question, QWidget *over, Then then);

    void askDesktop();
    void askOurselves();
    void take(const QStringList &paths);

    const zel::FileQuestion m_question;
    QWidget *m_over;
    Then m_then;
};

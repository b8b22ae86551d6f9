#pragma once

#include <QObject>

/// Runs the command lines that a host queues: the first starts the box, later ones are dispatched. GUI
/// thread.
class ZelBoxSetUp : public QObject
{
    Q_OBJECT
public:
    static ZelBoxSetUp *instance();

public Q_SLOTS:
    /// Reached by name through the meta-object system.
    void slot_onCmdMotify(const QString &cmdline);

private:
    ZelBoxSetUp() = default;

    bool first = true;
};

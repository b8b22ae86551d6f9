#pragma once

#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QHash>
#include <QStringList>
#include <QTimer>

namespace zel::recent {

/// Tells that watched files may have changed, been replaced or come into being. Nothing runs while nothing
/// happens. A burst of changes is told of once it pauses, at the latest every MostDelayMs.
class XbelWatcher final : public QObject
{
    Q_OBJECT
public:
    static constexpr int PauseMs = 300;
    static constexpr int MostDelayMs = 2000;

    explicit XbelWatcher(QObject *parent = nullptr);

    /// Watches exactly these from now on. Of folders that do not exist yet the nearest one above is watched.
    /// To be called before the files are read, and again whenever changed() was told.
    void watch(const QStringList &files, const QStringList &folders);

Q_SIGNALS:
    void changed();

private:
    void touched();
    void arm(const QStringList &wanted);

    QFileSystemWatcher m_watcher;
    QHash<QString, quint64> m_inodes; ///< what stood at each watched path when its watch was set
    QTimer m_pause;
    QElapsedTimer m_sinceFirst;
};

} // namespace zel::recent

#pragma once

#include "xbelreader.h"
#include "xbelsources.h"
#include "xbelwatcher.h"

#include <QDeadlineTimer>
#include <QFile>

#include <chrono>
#include <memory>

namespace zel::recent {

/// Follows the recently-used lists: finds them, reads those that changed, piece by piece between other events
/// of its thread, and hands over what each says. One that was removed or emptied, and stays so for a while
/// (who writes it anew leaves it so for a moment only), says that it has nothing any more. After stop()
/// nothing more is read.
class XbelImporter final : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds ClearedAfter = std::chrono::seconds(10);

    XbelImporter(const RecentPlaces &places, QHash<QString, FileStamp> known, QObject *parent = nullptr,
        std::chrono::milliseconds clearedAfter = ClearedAfter);
    ~XbelImporter() override;

    void scan(); ///< looks at all lists now; scanned() follows
    void stop();

Q_SIGNALS:
    void imported(const zel::recent::XbelImport &import);
    void scanned(); ///< nothing is left to be read

private:
    struct Reading;

    void findGone(const QVector<XbelSource> &sources);
    void findCleared(const QVector<XbelSource> &sources);
    void tellNothing(const XbelSource &source, const FileStamp &stamp);
    void watch(const QVector<XbelSource> &sources);
    void queueChanged(const QVector<XbelSource> &sources);
    void next();
    bool begin(const XbelSource &source);
    void readOn();
    void finish();
    void logDamage(const QString &source, const QString &problem);

    const RecentPlaces m_places;
    XbelWatcher m_watcher;
    QHash<QString, FileStamp> m_known;
    QVector<XbelSource> m_queue;
    std::unique_ptr<Reading> m_reading;
    QStringList m_damageLogged; ///< sources whose damage is known; told again only after they were well
    const std::chrono::milliseconds m_clearedAfter;
    QHash<QString, QDeadlineTimer> m_cleared; ///< sources that are to be taken for cleared then
    QTimer m_clearedCheck;                    ///< runs only while there are some
    bool m_scanAgain = false;
    bool m_stopped = false;
};

} // namespace zel::recent

#pragma once

#include "xbelreader.h"
#include "xbelsources.h"
#include "xbelwatcher.h"

#include <QFile>

#include <memory>

namespace zel::recent {

/// Follows the recently-used lists: finds them, reads those that changed, piece by piece between other events
/// of its thread, and hands over what each says. After stop() nothing more is read.
class XbelImporter final : public QObject
{
    Q_OBJECT
public:
    XbelImporter(const RecentPlaces &places, QHash<QString, FileStamp> known, QObject *parent = nullptr);
    ~XbelImporter() override;

    void scan(); ///< looks at all lists now; scanned() follows
    void stop();

Q_SIGNALS:
    void imported(const zel::recent::XbelImport &import);
    void scanned(); ///< nothing is left to be read

private:
    struct Reading;

    void findGone(const QVector<XbelSource> &sources);
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
    bool m_scanAgain = false;
    bool m_stopped = false;
};

} // namespace zel::recent

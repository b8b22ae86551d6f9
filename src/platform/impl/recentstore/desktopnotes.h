#pragma once

#include "platform/impl/recentstore/xbel/xbeledit.h"

#include <QObject>
#include <QSet>

#include <functional>

namespace zel::recent {

/// What the box has to tell the desktop's recently-used list, until it could be written. Store's thread.
class DesktopNotes final : public QObject
{
    Q_OBJECT
public:
    struct Sources
    {
        std::function<bool(const QString &path)> isAwaited; ///< a visit that is not to be told of yet
        std::function<void(QVector<XbelEdit::Visit> &)> findMimeTypes; ///< of what is to be written
    };

    DesktopNotes(const QString &list, Sources sources, QObject *parent = nullptr);

    void addVisits(const QVector<XbelEdit::Visit> &visits); ///< they take back removals
    void addRemovals(const QStringList &paths);             ///< they take back visits
    void dropVisits(const QSet<QString> &paths);
    void clear() { m_edit = {}; }

    /// Writes soon: several notes in a row make one rewriting of the list. What cannot be written is kept.
    void plan();
    bool write();           ///< now; false when the list could not be written
    bool hasFailed() const; ///< it could not be read or written, which time may heal
    /// Likewise, or it is not what it should be, which only another program heals.
    bool isRefused() const;

Q_SIGNALS:
    void written(); ///< or tried to; hasFailed() and isRefused() are new

private:
    XbelEdit take();

    const QString m_list;
    const Sources m_sources;
    XbelEdit m_edit;
    XbelEditResult m_result = XbelEditResult::Unchanged; // of the last time; a problem is said once
    bool m_planned = false;
};

} // namespace zel::recent

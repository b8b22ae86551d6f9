#pragma once

#include "clouddoc/clouddocrecords.h"

#include <QObject>

class CloudDocLink;

/// Reads a folder page by page: a small page first, so that something is there to see, then larger ones, each
/// small enough to be taken in within a frame. GUI thread. One folder at a time; answers for one that was
/// left are dropped. Each start() that is not stopped ends with one finished() or failed().
class CloudFolderLoader final : public QObject
{
    Q_OBJECT
public:
    /// `link` outlives this.
    explicit CloudFolderLoader(CloudDocLink *link, QObject *parent = nullptr);

    void start(const QString &folderId, zel::ListSort sort); ///< an empty id is the root
    void stop();                                             ///< nothing is told any more
    bool isRunning() const { return m_running; }

Q_SIGNALS:
    void pageArrived(const CloudPage &page, bool first);
    /// `fits`: all pages are of one state of the folder; else something may be missing or there twice.
    void finished(bool fits);
    void failed(CloudProblem problem);

private:
    void askForPage();
    void onPage(const CloudPage &page);

    CloudDocLink *m_link;
    QString m_folderId;
    zel::ListSort m_sort;
    int m_offset = 0;
    qint64 m_version = 0;
    bool m_fits = true;
    bool m_running = false;
    int m_run = 0; ///< grows with each start and stop
};

#pragma once

#include "clouddoc/clouddocument.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSet>
#include <QTimer>

class CloudDocLink;
class CloudDocModel;
class CloudFolderLoader;
struct CloudPage;

/// The folder on view: read into the model page by page, read anew by difference, and kept as the service
/// tells. News are newer than a page that is still on its way. GUI thread. No timer runs while nothing
/// happens.
class CloudDocFolder final : public QObject
{
    Q_OBJECT
public:
    enum class State {
        Idle,    ///< no folder was asked for yet
        Loading, ///< nothing of the folder is there yet
        Ready,   ///< also while further pages of a large folder arrive: isComplete()
        Offline, ///< the service is away; what was shown stays
        Failed,  ///< see problem()
    };
    Q_ENUM(State)

    /// Both outlive this.
    CloudDocFolder(CloudDocLink *link, CloudDocModel *documents, QObject *parent = nullptr);

    State state() const { return m_state; }
    CloudProblem problem() const { return m_problem; } ///< of State::Failed
    bool isComplete() const { return m_complete; }     ///< the last page of the folder has come
    bool isReloading() const { return m_reloading; }   ///< read anew while what is known stays on view
    bool isReading() const;
    const CloudDocument &document() const { return m_folder; } ///< itself, as told last
    QString id() const { return m_folder.id; } ///< empty: the root, before its id is known, or none
    bool isRootUnknown() const { return m_folder.id.isEmpty(); } ///< its id comes with its first page

    void open(const QString &id);                      ///< empties the model first; an empty id is the root
    void reload();                                     ///< rows change only where the folder differs
    void readAgainSoon();                              ///< much has changed in it
    void interrupt();                                  ///< the service has gone
    void setMissing();                                 ///< it is not there, and nothing above it either
    void stop();                                       ///< nothing of what is still on its way is taken
    void takePresent(const CloudDocuments &documents); ///< as they are now, here or elsewhere
    void takeGone(const QStringList &ids);

Q_SIGNALS:
    void stateChanged();                      ///< state(), problem(), isComplete() or isReloading()
    void documentArrived();                   ///< document(), with the first page of each reading
    void readEnded();                         ///< all pages are in the model; before stateChanged()
    void missing();                           ///< when it was read it was not there
    void readingFailed(CloudProblem problem); ///< while rows stay on view: they may be out of date

private:
    void setState(State state, CloudProblem problem = CloudProblem::None);
    void read(bool anew);
    void onPage(const CloudPage &page, bool first);
    void onRead(bool fits);
    void onReadFailed(CloudProblem problem);
    CloudDocuments withoutTouched(const CloudDocuments &documents) const;
    void takeFresh(bool fits);

    CloudDocLink *m_link;
    CloudDocModel *m_documents;
    CloudFolderLoader *m_loader;
    CloudDocument m_folder;
    State m_state = State::Idle;
    CloudProblem m_problem = CloudProblem::None;
    bool m_complete = false;  ///< all of the folder has been read once
    bool m_reloading = false; ///< into m_fresh
    bool m_stale = false;     ///< to be read again after this time
    QElapsedTimer m_reading;  ///< since the last reading began
    qint64 m_readingTook = 0; ///< ms
    QTimer m_readAgain;       ///< runs only while much is changed in the folder
    CloudDocuments m_fresh;
    QSet<QString> m_touched; ///< items of which news came while the folder is read; newer than a page
};

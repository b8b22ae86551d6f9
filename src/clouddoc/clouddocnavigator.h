#pragma once

#include "clouddoc/clouddocument.h"

#include <QObject>
#include <QVector>

class CloudDocFolder;
class CloudDocLink;
class CloudDocModel;

/// Where in the drive one is: the way from the root, the folders before and after, and what to do when the
/// folder on view is not there any more. GUI thread. Which documents are there is CloudDocFolder's business.
class CloudDocNavigator final : public QObject
{
    Q_OBJECT
public:
    /// All outlive this. `documents` are those of `folder`.
    CloudDocNavigator(CloudDocLink *link, CloudDocFolder *folder, const CloudDocModel *documents,
        QObject *parent = nullptr);

    CloudCrumbs crumbs() const { return m_crumbs; }
    QString cameFrom() const { return m_cameFrom; }
    bool canGoUp() const { return m_crumbs.size() > 1; }
    bool canGoBack() const { return !m_back.isEmpty(); }
    bool canGoForward() const { return !m_forward.isEmpty(); }
    bool isHere(const QString &id) const; ///< the folder on view; empty: the root
    bool isAbove(const QString &id) const { return crumbOf(id) >= 0; } ///< or the folder on view itself

    void open(const QString &id); ///< what is open is read anew; empty: the root
    void up();
    void back();
    void forward();
    /// The way to the folder on view may be another one, or the folder gone.
    void checkCrumbs();

Q_SIGNALS:
    void left();           ///< for another folder, whose reading has begun
    void crumbsChanged();  ///< also when a folder above was renamed
    void historyChanged(); ///< canGoUp(), canGoBack() or canGoForward()
    /// The folder on view was removed or is not there; the nearest one above it that is there is opened.
    void folderGone(const QString &name);

private:
    struct Place
    {
        QString id; ///< empty: the root
        CloudCrumbs crumbs;
    };

    void go(const Place &place);
    Place place() const;
    CloudCrumbs crumbsOf(const QString &id) const;
    int crumbOf(const QString &id) const;
    void setCrumbs(const CloudCrumbs &crumbs);
    void onDocumentArrived();
    void leaveGoneFolder();

    CloudDocLink *m_link;
    CloudDocFolder *m_folder;
    const CloudDocModel *m_documents;
    CloudCrumbs m_crumbs;
    QString m_cameFrom;
    QVector<Place> m_back;
    QVector<Place> m_forward;
    bool m_checkingCrumbs = false;
    bool m_crumbsStale = false;
};

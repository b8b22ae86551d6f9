#pragma once

#include "clouddoc/clouddoclogic.h"

#include <optional>

class NoticeArea;
class NoticeBar;
class QAction;
class UndoOffer;

/// What the cloud page says at its lower edge: what was done and how it is taken back, what was not done, and
/// that the service is away. GUI thread.
class CloudDocNotices : public QObject
{
    Q_OBJECT
public:
    /// The notices float over `over`, a child of `page`. All outlive it.
    CloudDocNotices(CloudDocLogic *logic, QAction *undo, QWidget *page, QWidget *over);

    NoticeBar *notice() const { return m_notice; }
    void tell(const QString &problem);
    void setStale(bool stale); ///< the rows are there, the service is not
    void retire();             ///< the user does something else; what was done before stays done
    void undo();
    /// That it was done, and how it is taken back.
    void offer(const CloudUndo &undo);
    std::optional<CloudUndo> offered() const; ///< what undo() takes back at present

Q_SIGNALS:
    void retryRequested();         ///< to reach the service
    void coverChanged(int height); ///< as NoticeArea tells it

private:
    QString doneText(const CloudUndo &undo) const;
    QString restoredText(const CloudUndo &undo, int count) const;
    QString folderName(const QString &id) const;

    CloudDocLogic *m_logic;
    NoticeArea *m_area;
    NoticeBar *m_offline;
    NoticeBar *m_notice;
    UndoOffer *m_undo;
    CloudUndo m_offered; // last
    bool m_stale = false;
};

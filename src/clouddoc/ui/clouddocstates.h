#pragma once

#include "lists/ui/statestack.h"

#include <QTimer>

class CloudDocLogic;
class QAbstractItemView;

/// What stands in the middle of the cloud page: the list of the folder, or why there is none. GUI thread.
/// Follows the logic by itself; what was on view stays for a moment, so that a folder that is read at once
/// does not flash. TimedOut means that the service is away.
class CloudDocStates : public StateStack
{
    Q_OBJECT
public:
    CloudDocStates(CloudDocLogic *logic, QAbstractItemView *list, QWidget *parent = nullptr);

    bool isStale() const; ///< the rows are there, the service is not

public Q_SLOTS:
    void follow();

Q_SIGNALS:
    void followed(); ///< the logic, whether or not state() is another one
    void uploadRequested(QWidget *button);
    void newFolderRequested();
    void folderMenuRequested(const QPoint &globalPos); ///< of the empty folder

private:
    State wantedState() const;
    QWidget *makeEmpty();
    QWidget *makeOffline();

    CloudDocLogic *m_logic;
    QAbstractItemView *m_list;
    QTimer m_waitingSoon{this};
    bool m_waitsLong = false;
};

#pragma once

#include "clouddoc/cloudtransfer.h"

#include <QObject>
#include <QSet>

class CloudDocListView;
class CloudDocLogic;

/// Selects what the user has uploaded into the folder on view once all of it has come, unless something else
/// was picked, opened or begun meanwhile. GUI thread; a child of the view.
class ArrivedUploads : public QObject
{
    Q_OBJECT
public:
    ArrivedUploads(
        CloudDocLogic *logic, CloudDocListView *view); ///< both outlive it; the view has the documents

    void forget(); ///< the user does something else

private:
    void await(const CloudTransfers &transfers);
    void note(const CloudTransfer &transfer);
    void select();

    CloudDocLogic *m_logic;
    CloudDocListView *m_view;
    QSet<QString> m_running; // transfers
    QStringList m_arrived;   // items
    QString m_current;       // when the uploads began
    int m_selected = 0;      // likewise
};

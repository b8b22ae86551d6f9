#pragma once

#include "lists/listsort.h"

#include <QObject>

class CloudColumns;
class CloudDocListView;
class CloudDocModel;
class CloudDocToolBar;

/// Which documents of the folder the cloud page lists, and in which order: what the search words say, the
/// headings and the menu of the tool bar. GUI thread. Owns none of what it works on.
class CloudListing : public QObject
{
    Q_OBJECT
public:
    struct Parts
    {
        CloudDocModel *documents;
        CloudDocListView *view;
        CloudDocToolBar *toolBar;
        CloudColumns *columns;
    };

    CloudListing(const Parts &parts, QObject *parent); ///< in the order that was chosen last

    void setWords(const QString &words);
    void setShown(bool shown); ///< headings and menu: whether there is a list to order

private:
    void chooseSort(const zel::ListSort &sort);
    void showSort();

    const Parts m_parts;
};

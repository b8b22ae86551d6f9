#pragma once

#include "lists/listsort.h"

#include <QObject>

class RecentFileActions;
class RecentFilterBar;
class RecentSortFilterModel;
class ZelBoxRecentFileListView;

/// Which documents the Recent page lists, and in which order: what its search words, its chips and the menu
/// of its header say. GUI thread. Owns none of what it works on.
class RecentListing : public QObject
{
    Q_OBJECT
public:
    struct Parts
    {
        RecentSortFilterModel *rows;
        ZelBoxRecentFileListView *view;
        RecentFilterBar *chips;
        RecentFileActions *actions;
    };

    RecentListing(const Parts &parts, QObject *parent); ///< in the order that was chosen last

    zel::ListSort sort() const;
    void chooseSort(const zel::ListSort &sort); ///< remembered
    void lookUpSizes();                         ///< when the list stands by them
    void setWords(const QString &words);
    void showAll(); ///< no words, the first chip

Q_SIGNALS:
    void filtered();

private:
    void applySort(const zel::ListSort &sort);
    void applyFilter();

    const Parts m_parts;
    QString m_words;
};

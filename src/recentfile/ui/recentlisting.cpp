#include "recentfile/ui/recentlisting.h"

#include "recentfile/recentfileactions.h"
#include "recentfile/recentsettings.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfilterbar.h"

using zel::ListSort;
using zel::recent::SortKeys;

RecentListing::RecentListing(const Parts &parts, QObject *parent) : QObject(parent), m_parts(parts)
{
    connect(m_parts.chips, &FilterBar::chipChosen, this, &RecentListing::applyFilter);
    applySort(zel::storedSort(SortKeys, {}));
}

ListSort RecentListing::sort() const
{
    return m_parts.rows->sort();
}

void RecentListing::chooseSort(const ListSort &sort)
{
    zel::storeSort(SortKeys, sort);
    applySort(sort);
    m_parts.view->scrollToTop();
}

void RecentListing::applySort(const ListSort &sort)
{
    m_parts.rows->setSort(sort);
    m_parts.view->setShownDetail(sort.key == ListSort::Key::Size ? RecentDetail::Size : RecentDetail::Time);
    lookUpSizes();
}

void RecentListing::lookUpSizes()
{
    if (sort().key == ListSort::Key::Size)
        m_parts.actions->lookUpSizes();
}

void RecentListing::setWords(const QString &words)
{
    if (std::exchange(m_words, words) != words)
        applyFilter();
}

void RecentListing::showAll()
{
    setWords({});
    m_parts.chips->chooseFirst();
}

void RecentListing::applyFilter()
{
    const QStringList words = zel::WordFilter(m_words).words();
    const zel::recent::DocumentKinds kinds = m_parts.chips->kinds();
    m_parts.view->changeFilter(kinds || !words.isEmpty(), words, [&] {
        m_parts.rows->setFilter({m_words, kinds});
    });
    Q_EMIT filtered();
}

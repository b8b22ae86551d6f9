#include "clouddoc/ui/cloudlisting.h"

#include "base/settingskeys.h"
#include "clouddoc/clouddocmodel.h"
#include "clouddoc/ui/cloudcolumns.h"
#include "clouddoc/ui/clouddoclistview.h"
#include "clouddoc/ui/clouddoctoolbar.h"
#include "lists/listsortmemory.h"

static constexpr zel::ListSortKeys SortKeys{zel::keys::CloudSortKey, zel::keys::CloudSortDescending};

CloudListing::CloudListing(const Parts &parts, QObject *parent) : QObject(parent), m_parts(parts)
{
    m_parts.columns->follow(m_parts.view);
    m_parts.documents->setSortOrder(zel::storedSort(SortKeys, m_parts.documents->sortOrder()));
    showSort();
    connect(m_parts.documents, &CloudDocModel::sortOrderChanged, this, &CloudListing::showSort);
    connect(m_parts.toolBar, &CloudDocToolBar::sortChosen, this, &CloudListing::chooseSort);
    connect(m_parts.columns, &CloudColumns::sortChosen, this, &CloudListing::chooseSort);
}

void CloudListing::setWords(const QString &words)
{
    const QStringList list = zel::WordFilter(words).words();
    m_parts.view->changeFilter(!list.isEmpty(), list, [&] { m_parts.documents->setFilterText(words); });
}

void CloudListing::setShown(bool shown)
{
    m_parts.toolBar->setSortShown(shown);
    m_parts.columns->setVisible(shown);
}

void CloudListing::chooseSort(const zel::ListSort &sort)
{
    zel::storeSort(SortKeys, sort);
    m_parts.documents->setSortOrder(sort);
}

void CloudListing::showSort()
{
    m_parts.toolBar->setSort(m_parts.documents->sortOrder());
    m_parts.columns->setSort(m_parts.documents->sortOrder());
}

#include "clouddoc/ui/crumbtexts.h"

QVector<BreadcrumbBar::Crumb> zel::clouddoc::namedCrumbs(const CloudCrumbs &crumbs)
{
    QVector<BreadcrumbBar::Crumb> named;
    for (const CloudCrumb &crumb : crumbs)
        named.append({crumb.id, crumb.name.isEmpty() ? BreadcrumbBar::tr("Cloud documents") : crumb.name});
    if (named.isEmpty()) // before the drive has told
        named.append({QString(), BreadcrumbBar::tr("Cloud documents")});
    return named;
}

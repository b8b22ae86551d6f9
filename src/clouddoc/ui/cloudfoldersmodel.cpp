#include "clouddoc/ui/cloudfoldersmodel.h"

#include "clouddoc/clouddocmodel.h"

CloudFoldersModel::CloudFoldersModel(const QStringList &hiddenIds, QObject *parent)
    : QSortFilterProxyModel(parent), m_hidden(hiddenIds.cbegin(), hiddenIds.cend())
{
}

bool CloudFoldersModel::filterAcceptsRow(int row, const QModelIndex &) const
{
    const CloudDocument &document = static_cast<CloudDocModel *>(sourceModel())->document(row);
    return document.folder && !m_hidden.contains(document.id);
}

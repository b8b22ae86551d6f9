#pragma once

#include <QSet>
#include <QSortFilterProxyModel>

/// The folders of a CloudDocModel without some of them. GUI thread.
class CloudFoldersModel final : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    CloudFoldersModel(const QStringList &hiddenIds, QObject *parent = nullptr);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QSet<QString> m_hidden;
};

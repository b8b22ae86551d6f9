#pragma once

#include <QString>
#include <QVector>

/// The pages of the main window's navigation, in the order of their numbers (the command line's "tab").
namespace zel {

struct PageInfo
{
    QString key;          ///< source key
    QString title;        ///< translated
    QString icon;         ///< line icon resource
    QString illustration; ///< picture of the page while its feature is not there yet
    QString explanation;  ///< translated; what the page will show, while its feature is not there yet
};

QVector<PageInfo> pageList();

/// Number of the page with this source key; -1 when there is none.
int pageNumber(const QString &key);

} // namespace zel

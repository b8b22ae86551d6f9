#include "clouddoc/cloudfolderloader.h"

#include "clouddoc/clouddoclink.h"

#include <QPointer>

namespace {

constexpr int FirstPage = 500;
constexpr int LaterPages = 2000;

} // namespace

CloudFolderLoader::CloudFolderLoader(CloudDocLink *link, QObject *parent) : QObject(parent), m_link(link) { }

void CloudFolderLoader::start(const QString &folderId, zel::ListSort sort)
{
    ++m_run;
    m_running = true;
    m_folderId = folderId;
    m_sort = sort;
    m_offset = 0;
    m_version = 0;
    m_fits = true;
    askForPage();
}

void CloudFolderLoader::stop()
{
    ++m_run;
    m_running = false;
}

void CloudFolderLoader::askForPage()
{
    m_link->listFolder(m_folderId, m_offset, m_offset == 0 ? FirstPage : LaterPages, m_sort, m_version,
        [loader = QPointer<CloudFolderLoader>(this), run = m_run](const CloudAnswer<CloudPage> &answer) {
            if (!loader || loader->m_run != run)
                return;
            if (answer) {
                loader->onPage(answer.value);
                return;
            }
            loader->m_running = false;
            Q_EMIT loader->failed(answer.problem);
        });
}

// The next page is asked for before this one is taken in: the service works on it meanwhile.
void CloudFolderLoader::onPage(const CloudPage &page)
{
    const bool first = m_offset == 0;
    m_fits = m_fits && (first || page.version == m_version);
    m_version = page.version;
    m_offset += page.documents.size();
    if (page.more)
        askForPage();
    const int run = m_run;
    const QPointer<CloudFolderLoader> alive(this);
    Q_EMIT pageArrived(page, first);
    if (!alive || m_run != run || page.more)
        return;
    m_running = false;
    Q_EMIT finished(m_fits);
}

#include "widgets/filedrag.h"

#include "kskin.h"

#include <QDropEvent>
#include <QLocale>
#include <QMimeData>
#include <QPainter>
#include <QSysInfo>
#include <QUrl>

namespace zel {
namespace {

constexpr int MostTextPaths = 1000; // as text the list is for a person to read

bool isOfThisHost(const QUrl &url)
{
    const QString host = url.host();
    return host.isEmpty() || host == QLatin1String("localhost")
        || host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

} // namespace

QStringList localFiles(const QMimeData *data)
{
    QStringList paths;
    if (!data)
        return paths;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        if (!url.isLocalFile() || !isOfThisHost(url))
            continue;
        QUrl here = url;
        here.setHost({});
        paths << here.toLocalFile();
    }
    paths.removeAll({});
    paths.removeDuplicates();
    return paths;
}

// Several file managers paste nothing else than the second format: the word, then a URL a line.
void setFiles(QMimeData *data, const QStringList &paths)
{
    QList<QUrl> urls;
    urls.reserve(paths.size());
    QByteArray copied("copy");
    for (const QString &path : paths) {
        urls << QUrl::fromLocalFile(path);
        copied += '\n' + urls.constLast().toEncoded();
    }
    data->setUrls(urls);
    data->setData(QStringLiteral("x-special/gnome-copied-files"), copied);
}

std::unique_ptr<QMimeData> fileMimeData(const QStringList &paths)
{
    if (paths.isEmpty())
        return nullptr;
    auto data = std::make_unique<QMimeData>();
    setFiles(data.get(), paths);
    data->setText(QStringList(paths.mid(0, MostTextPaths)).join(QLatin1Char('\n')));
    return data;
}

// A source that offers to move only would delete the files once we have "taken" them.
bool offersFiles(const QDropEvent *event)
{
    const bool keepsFiles = event->possibleActions() & (Qt::CopyAction | Qt::LinkAction);
    return keepsFiles && !localFiles(event->mimeData()).isEmpty();
}

void paintDragCount(QPainter *painter, const QPoint &corner, int height, int count)
{
    const QString text = QLocale().toString(count);
    const int width = qMax(height, painter->fontMetrics().horizontalAdvance(text) + height / 2);
    const QRect bubble(corner.x() - width, corner.y(), width, height);
    painter->setPen(Qt::NoPen);
    painter->setBrush(KSkin::color(KSkin::Color::Accent));
    painter->drawRoundedRect(bubble, height / 2.0, height / 2.0);
    painter->setPen(KSkin::color(KSkin::Color::OnAccent));
    painter->drawText(bubble, Qt::AlignCenter | Qt::TextSingleLine, text);
}

} // namespace zel

#include "kdocumentopener.h"

#include "base/logging.h"
#include "filecheck.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QFileInfo>
#include <QPointer>
#include <QUrl>

namespace {

QPointer<KDocumentOpener> &replacement()
{
    static QPointer<KDocumentOpener> opener;
    return opener;
}

KDocumentOpener::Outcome openWithDesktop(const QString &path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path)) ? KDocumentOpener::Outcome::Opened
                                                                : KDocumentOpener::Outcome::NoProgram;
}

void openFolderOf(const QString &path)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath())))
        qCWarning(lcPlatform, "no program to show a folder");
}

QDBusMessage showItemsCall(const QString &path)
{
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"), QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("ShowItems"));
    const QStringList items{QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())};
    call << items << QString(); // no start-up notification id
    return call;
}

} // namespace

KDocumentOpener *KDocumentOpener::instance()
{
    if (replacement())
        return replacement();
    static KDocumentOpener opener;
    return &opener;
}

void KDocumentOpener::setInstance(KDocumentOpener *opener)
{
    replacement() = opener;
}

void KDocumentOpener::open(const QString &path)
{
    using zel::platform::FileCheck;
    auto *check = new FileCheck(path, this);
    connect(check, &FileCheck::done, this, [this, path](FileCheck::Result result) {
        switch (result) {
        case FileCheck::Result::Readable:
            Q_EMIT opened(path, openWithDesktop(path));
            return;
        case FileCheck::Result::Missing:
            Q_EMIT opened(path, Outcome::Missing);
            return;
        case FileCheck::Result::NotReadable:
            Q_EMIT opened(path, Outcome::NotReadable);
            return;
        }
    });
    check->start();
}

void KDocumentOpener::reveal(const QString &path)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        openFolderOf(path);
        return;
    }
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(showItemsCall(path)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, path] {
        watcher->deleteLater();
        if (watcher->isError())
            openFolderOf(path);
    });
}

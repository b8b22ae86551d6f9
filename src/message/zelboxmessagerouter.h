#pragma once

#include <QObject>

/// Opens the message pages for a command or notice that names a message, file or group. GUI thread; one per
/// process.
class ZelBoxMessageRouter : public QObject
{
    Q_OBJECT
public:
    static ZelBoxMessageRouter *instance();

Q_SIGNALS:
    void sigNavigateRecentTab(const QString &messageId);
    void selectContactsFileId(const QString &fileId);
    void sigDocMsgViewTypeChanged(); ///< after selectContactsFileId(): show the view that holds the file
    void sigBrowserGroupIdChanged(const QString &groupId);
    void sigSelectMsgChannelItem(const QString &category, const QString &from, const QString &messageId);

private:
    ZelBoxMessageRouter() = default;
};

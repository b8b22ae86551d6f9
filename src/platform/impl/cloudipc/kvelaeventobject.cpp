#include "kvelaeventobject.h"

#include "common_types.h"
#include "notify_types.h"

KVelaEventObject::KVelaEventObject(QObject *parent) : QObject(parent)
{
    // The names are those of the signals' texts, and the numbers those that the registry gives.
    qRegisterMetaType<QMap<QString, QString>>("QMap<QString,QString>");
    qRegisterMetaType<QMap<QString, int>>("QMap<QString,int>");
    qRegisterMetaType<QVector<zel::vela::CloudItem>>("QVector<zel::vela::CloudItem>");
    const int creation = qRegisterMetaType<NotifyFileCreationArg>("zel::vela::NotifyFileCreationArg");
    QMetaType::registerNormalizedTypedef("NotifyFileCreationArg", creation);
    const int thumbnail = qRegisterMetaType<NotifyUserThumbnailArg>("zel::vela::NotifyUserThumbnailArg");
    QMetaType::registerNormalizedTypedef("NotifyUserThumbnailArg", thumbnail);
}

#pragma once

#include "service/tables/messagetable.h"

namespace zel::service {

/// What became of messages, to be told to the clients once it is on disk.
struct MessageNews
{
    QVector<Message> stored;      ///< newest last
    QVector<QStringList> changed; ///< id, file, topic and the three marks of each message that changed

    bool isEmpty() const { return stored.isEmpty() && changed.isEmpty(); }
};

} // namespace zel::service

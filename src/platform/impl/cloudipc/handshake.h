#pragma once

#include "cloud/wire/message.h"

#include <QByteArray>
#include <QString>

/// The first request of a connection and its answer, before which nothing else is sent. Pure.
namespace zel::cloudipc {

enum class Handshake {
    Accepted,
    Refused, ///< the service does not want us, whatever we send next
    Damaged, ///< it answers something else
};

QByteArray handshakeFrame(const QString &clientName);
/// `why` is written unless it was accepted; for the log.
Handshake readHandshake(const wire::MessageHead &head, wire::MessageReader &reader, QString *why);

} // namespace zel::cloudipc

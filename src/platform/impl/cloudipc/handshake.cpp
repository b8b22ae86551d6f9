#include "handshake.h"

#include "cloud/wire/limits.h"
#include "cloud/wire/serviceerror.h"
#include "common_types.h"

#include <QCoreApplication>

namespace zel::cloudipc {
namespace {

constexpr char Method[] = "getVersion";
constexpr int32_t Sequence = 1;

QString refusalText(const vela::GetVersionResult &answer)
{
    if (answer.state == int32_t(wire::ServiceError::VersionMismatch))
        return QStringLiteral("the cloud service speaks version %1 of the link, this program version %2")
            .arg(answer.protocolVersion)
            .arg(wire::ProtocolVersion);
    return QStringLiteral("the cloud service refused the connection: %1 (%2)")
        .arg(QString::fromStdString(answer.errorInfo.errString))
        .arg(answer.state);
}

} // namespace

QByteArray handshakeFrame(const QString &clientName)
{
    vela::GetVersionArg hello;
    hello.protocolVersion = wire::ProtocolVersion;
    hello.clientName = clientName.toStdString();
    hello.clientVersion = QCoreApplication::applicationVersion().toStdString();
    hello.processId = QCoreApplication::applicationPid();
    return wire::callFrame(Method, Sequence, hello);
}

Handshake readHandshake(const wire::MessageHead &head, wire::MessageReader &reader, QString *why)
{
    *why = QStringLiteral("it did not answer the introduction");
    if (head.method != Method || head.sequence != Sequence)
        return Handshake::Damaged;
    auto refusal = wire::Refusal::InternalError;
    QString text;
    if (head.kind == wire::MessageKind::Exception && reader.readRefusal(refusal, text)) {
        *why = QStringLiteral("the cloud service does not know version %1 of the link: %2")
                   .arg(QString::number(wire::ProtocolVersion), text);
        return Handshake::Refused;
    }
    vela::GetVersionResult answer;
    if (head.kind != wire::MessageKind::Reply || !reader.readAnswer(answer))
        return Handshake::Damaged;
    if (answer.state == 0)
        return Handshake::Accepted;
    *why = refusalText(answer);
    return Handshake::Refused;
}

} // namespace zel::cloudipc

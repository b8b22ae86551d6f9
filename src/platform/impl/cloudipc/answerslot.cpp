#include "answerslot.h"

#include "base/logging.h"
#include "krpcresponse.h"

#include <QHash>
#include <QMetaMethod>
#include <QPair>

namespace zel::cloudipc {
namespace {

AnswerSlot fittingSlot(const QMetaMethod &method)
{
    if (method.parameterCount() != 3 || method.parameterType(0) != QMetaType::Bool
        || method.parameterType(1) != QMetaType::QString)
        return {};
    const QByteArray answer = method.parameterTypes().at(2);
    if (answer == "KRpcResponse")
        return {AnswerSlot::Form::Response, method.methodIndex(), nullptr};
    if (answer == "zel::CloudEnding")
        return {AnswerSlot::Form::Ending, method.methodIndex(), nullptr};
    const wire::RecordType *record = wire::findRecord({answer.constData(), size_t(answer.size())});
    if (!record)
        return {};
    record->metaType(); // so that the slot can hand the answer on through a queue
    return {AnswerSlot::Form::Record, method.methodIndex(), record};
}

// The most derived one first, as with a call by name in C++.
AnswerSlot lookUp(const QMetaObject &type, const QByteArray &name)
{
    for (int i = type.methodCount() - 1; i >= 0; --i) {
        const QMetaMethod method = type.method(i);
        if (method.name() != name)
            continue;
        const AnswerSlot slot = fittingSlot(method);
        if (slot.form != AnswerSlot::Form::None)
            return slot;
    }
    qCWarning(lcPlatform, "%s has no slot %s(bool, QString, <record>); its answers are dropped",
        type.className(), name.constData());
    return {};
}

} // namespace

const AnswerSlot &findAnswerSlot(const QMetaObject &type, const QString &name)
{
    static QHash<QPair<const QMetaObject *, QString>, AnswerSlot> known;
    const auto key = qMakePair(&type, name);
    auto it = known.constFind(key);
    if (it == known.constEnd())
        it = known.insert(key, lookUp(type, name.toUtf8()));
    return *it;
}

void AnswerSlot::call(QObject *receiver, bool ok, const QString &requestId, const void *answer) const
{
    void *arguments[] = {nullptr, &ok, const_cast<QString *>(&requestId),
        const_cast<void *>(answer)}; // first: the return value
    QMetaObject::metacall(receiver, QMetaObject::InvokeMetaMethod, index, arguments);
}

void AnswerSlot::callFailed(QObject *receiver, const QString &requestId, const CloudEnding &ending) const
{
    if (form == Form::Ending) {
        call(receiver, false, requestId, &ending);
    } else if (form == Form::Response) {
        const KRpcResponse response;
        call(receiver, false, requestId, &response);
    } else if (form == Form::Record) {
        const wire::AnyRecord answer(*record);
        call(receiver, false, requestId, answer.object());
    }
}

} // namespace zel::cloudipc

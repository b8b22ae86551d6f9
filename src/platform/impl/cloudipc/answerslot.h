#pragma once

#include "cloud/wire/registry.h"
#include "kcloudask.h"

#include <QString>

class QObject;
struct QMetaObject;

namespace zel::cloudipc {

/// The slot on which a request's answer is wanted: (bool, QString, X). GUI thread.
struct AnswerSlot
{
    enum class Form { None, Record, Response, Ending };

    Form form = Form::None;
    int index = -1;                           ///< of the method in its class
    const wire::RecordType *record = nullptr; ///< X; of zel::CloudEnding the method's answer

    void call(QObject *receiver, bool ok, const QString &requestId, const void *answer) const;
    /// Without an answer: a record or response is a default one then.
    void callFailed(QObject *receiver, const QString &requestId, const CloudEnding &ending) const;
};

/// The slot of that name; Form::None with one log line when there is none that fits. Cached: a class is
/// looked through once for each name.
const AnswerSlot &findAnswerSlot(const QMetaObject &type, const QString &name);

} // namespace zel::cloudipc

#pragma once

#include "cloud/wire/registry.h"
#include "common_types.h"

#include <QMetaType>
#include <ostream>

/// What the registry's row of one record class points at. For the generated tables only.
namespace zel::wire {

template <class Record> void *makeRecord()
{
    return new Record;
}

template <class Record> void destroyRecord(void *object)
{
    delete static_cast<Record *>(object);
}

// The base is a virtual one, so only the class itself knows where it lies.
template <class Record> apache::thrift::TBase *baseOfRecord(void *object)
{
    return static_cast<Record *>(object);
}

template <class Record> bool equalRecords(const void *left, const void *right)
{
    return *static_cast<const Record *>(left) == *static_cast<const Record *>(right);
}

template <class Record> void printRecord(std::ostream &out, const void *object)
{
    static_cast<const Record *>(object)->printTo(out);
}

template <class Record> int registerRecord(const char *name, const char *spacedName)
{
    const int id = qRegisterNormalizedMetaType<Record>(spacedName);
    QMetaType::registerNormalizedTypedef(name, id);
    return id;
}

/// The envelopes have no error record of their own; their map holds its two texts.
template <class Record> void failRecord(void *object, int32_t state, const vela::ServerErrorInfo &error)
{
    Record &record = *static_cast<Record *>(object);
    const auto intoMap = [&error](auto &map) {
        map["errResult"] = error.errResult;
        map["errString"] = error.errString;
    };
    if constexpr (requires {
                      record.state = state;
                      record.errorInfo = error;
                  }) {
        record.state = state;
        record.errorInfo = error;
    } else if constexpr (requires {
                             record.state = state;
                             record.resultMap[std::string()];
                         }) {
        record.state = state;
        intoMap(record.resultMap);
    } else if constexpr (requires {
                             record.state = state;
                             record.extraParam[std::string()];
                         }) {
        record.state = state;
        intoMap(record.extraParam);
    }
}

template <class Record> constexpr RecordType recordType(const char *name, const char *spacedName)
{
    const bool isAnswer = std::string_view(name).ends_with("Result");
    return {name, spacedName, &typeid(Record), makeRecord<Record>, destroyRecord<Record>,
        baseOfRecord<Record>, equalRecords<Record>, printRecord<Record>, registerRecord<Record>,
        isAnswer ? failRecord<Record> : nullptr};
}

} // namespace zel::wire

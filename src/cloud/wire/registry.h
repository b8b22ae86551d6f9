#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <span>
#include <string_view>
#include <typeinfo>
#include <utility>

namespace apache::thrift {
class TBase;
}
namespace zel::vela {
class ServerErrorInfo;
}

/// The registry of the wire records and methods, made from the interface description when the box is built.
/// Constant data; any thread.
namespace zel::wire {

/// What can be done with a record of which only the name is known. `object` always points at the record
/// itself.
struct RecordType
{
    std::string_view name;      ///< "CloudItem"
    const char *spacedName;     ///< "zel::vela::CloudItem"
    const std::type_info *type; ///< the record's class
    void *(*make)();            ///< a new record with default values
    void (*destroy)(void *);    ///< null is allowed
    apache::thrift::TBase *(*base)(void *object);
    bool (*equal)(const void *left, const void *right);
    void (*print)(std::ostream &out, const void *object); ///< "CloudItem(groupId=…, …)"
    int (*registerType)(const char *name, const char *spacedName);
    /// Makes an answer say why the request was not done; null for records that are no answer.
    void (*fail)(void *answer, int32_t state, const vela::ServerErrorInfo &error);

    /// Qt's number of the type, which is registered with and without its namespace.
    int metaType() const { return registerType(name.data(), spacedName); }
};

/// One method of the link. No request record means a list of texts.
struct MethodType
{
    std::string_view name;
    const RecordType *request;
    const RecordType *answer; ///< null for a push
    bool isPush;              ///< told by the service, never asked for
};

/// By name, with or without "zel::vela::"; null for an unknown one.
const RecordType *findRecord(std::string_view name);
/// A method that clients may call; null for an unknown one.
const MethodType *findMethod(std::string_view name);
/// A method that the service pushes; null for an unknown one.
const MethodType *findPush(std::string_view name);

std::span<const RecordType *const> allRecords(); ///< ordered by name
std::span<const MethodType> allMethods();        ///< those that clients may call, then the pushes

/// Owns one record of a type that is known only at run time.
class AnyRecord
{
public:
    AnyRecord() = default;
    explicit AnyRecord(const RecordType &type) : m_type(&type), m_object(type.make()) { }
    AnyRecord(AnyRecord &&other) noexcept : m_type(other.m_type), m_object(other.m_object)
    {
        other.m_object = nullptr;
    }
    AnyRecord &operator=(AnyRecord &&other) noexcept
    {
        std::swap(m_type, other.m_type);
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~AnyRecord()
    {
        if (m_object)
            m_type->destroy(m_object);
    }

    explicit operator bool() const { return m_object; }
    const RecordType *type() const { return m_type; }
    void *object() const { return m_object; }
    apache::thrift::TBase &base() const { return *m_type->base(m_object); }
    /// The record as its own class; the caller knows that it is one.
    template <class Record> Record &as() const { return *static_cast<Record *>(m_object); }

private:
    const RecordType *m_type = nullptr;
    void *m_object = nullptr;
};

} // namespace zel::wire

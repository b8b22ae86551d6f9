#pragma once

#include "cloud/wire/message.h"
#include "service/dispatch/methodtable.h"
#include "service/dispatch/pushes.h"
#include "support/filled.h"
#include "support/table.h"

#include <QTest>
#include <vector>

/// A client in the service's process: its calls are frames, and so are the answers and pushes that it gets,
/// in the order in which they would arrive.
class MethodClient final : public zel::service::Pushes
{
public:
    struct Arrived
    {
        std::string method;
        bool isPush = false;
        int32_t sequence = 0;
        QByteArray frame;
    };

    zel::service::MethodTable methods;
    std::vector<Arrived> arrived;

    void push(std::string_view method, const apache::thrift::TBase &record) override
    {
        arrived.push_back({std::string(method), true, 0, zel::wire::pushFrame(method, record)});
    }
    void pushTo(zel::service::ClientId, std::string_view method, const apache::thrift::TBase &record) override
    {
        push(method, record);
    }

    /// Sends a call; its answer arrives under the number that is returned.
    int32_t send(const QByteArray &frame)
    {
        zel::wire::MessageReader reader(frame.constData() + 4, size_t(frame.size()) - 4);
        zel::wire::MessageHead head;
        if (!reader.readHead(head))
            qFatal("a call does not parse");
        const zel::wire::MethodType *method = zel::wire::findMethod(head.method);
        const int32_t sequence = head.sequence;
        methods.call(*method, reader,
            zel::service::Reply(*method, sequence, zel::service::ClientId(1),
                [this, name = head.method, sequence](const QByteArray &answer) {
                    arrived.push_back({name, false, sequence, answer});
                }));
        return sequence;
    }
    int32_t send(std::string_view method, const apache::thrift::TBase &request)
    {
        return send(zel::wire::callFrame(method, ++m_sequence, request));
    }

    template <class Result> Result answer(int32_t sequence)
    {
        const auto find = [&] {
            return std::find_if(arrived.begin(), arrived.end(),
                [sequence](const Arrived &one) { return !one.isPush && one.sequence == sequence; });
        };
        Result result;
        if (!QTest::qWaitFor([&] { return find() != arrived.end(); }, 20000)) {
            QTest::qFail("no answer came", __FILE__, __LINE__);
            return result;
        }
        const QByteArray frame = find()->frame;
        zel::wire::MessageReader reader(frame.constData() + 4, size_t(frame.size()) - 4);
        zel::wire::MessageHead head;
        if (!reader.readHead(head) || !reader.readAnswer(result))
            QTest::qFail("the answer does not parse", __FILE__, __LINE__);
        return result;
    }

    template <class Result, class Request> Result call(std::string_view method, const Request &request)
    {
        return answer<Result>(send(method, request));
    }

    /// Pushes of one kind that have arrived, in order.
    template <class Record> std::vector<Record> pushed(std::string_view method) const
    {
        std::vector<Record> records;
        for (const Arrived &one : arrived) {
            if (!one.isPush || one.method != method)
                continue;
            zel::wire::MessageReader reader(one.frame.constData() + 4, size_t(one.frame.size()) - 4);
            zel::wire::MessageHead head;
            Record record;
            if (!reader.readHead(head) || !reader.readRequest(record))
                QTest::qFail("a push does not parse", __FILE__, __LINE__);
            records.push_back(std::move(record));
        }
        return records;
    }

private:
    int32_t m_sequence = 0;
};

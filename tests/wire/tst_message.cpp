// Messages byte by byte, and what hostile or foreign bytes come to.
#include "cloud/wire/boundedreader.h"
#include "cloud/wire/limits.h"
#include "cloud/wire/message.h"
#include "common_types.h"
#include "drive_types.h"

#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TProtocolException.h>
#include <thrift/transport/TBufferTransports.h>

using namespace apache::thrift::protocol;
using namespace zel::vela;
using namespace zel::wire;

class TestMessage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // The example of docs/wire.md.
    void bytes()
    {
        const QByteArray expected = bytesOf("00000055"                        // length of what follows
                                            "80010001"                        // strict binary, a call
                                            "0000000b 76656c6149706343616c6c" // "velaIpcCall"
                                            "00000007"                        // request number
                                            "0c0001"                          // arguments: field 1, a record
                                            "0b0001 0000000f 4b56656c6149706343616c6c4f626a"
                                            "0b0002 00000013 72656c6f61644d657373616765436f6e666967"
                                            "0d0003 0b0b 00000000" // no entries
                                            "00"                   // end of the record
                                            "00");                 // end of the arguments
        QCOMPARE(callFrame("velaIpcCall", 7, envelope()).toHex(), expected.toHex());
    }

    void roundTrips()
    {
        const QByteArray call = withoutLength(callFrame("velaIpcCall", 7, envelope()));
        MessageReader reader(call.constData(), size_t(call.size()));
        MessageHead head;
        QVERIFY(reader.readHead(head));
        QVERIFY(head.kind == MessageKind::Call && head.sequence == 7 && head.method == "velaIpcCall");
        VelaIpcArg arg;
        QVERIFY(reader.readRequest(arg));
        QCOMPARE(arg, envelope());

        const QStringList texts = {"a|b"_s, QString(), "文档"_s};
        const QByteArray list = withoutLength(listCallFrame("getLoginInfo", 8, texts));
        MessageReader listReader(list.constData(), size_t(list.size()));
        QStringList read;
        QVERIFY(listReader.readHead(head) && listReader.readRequestList(read));
        QCOMPARE(read, texts);

        const QByteArray refused = withoutLength(refusalFrame("x", 9, Refusal::UnknownMethod, "无"_s));
        MessageReader refusedReader(refused.constData(), size_t(refused.size()));
        Refusal refusal = Refusal::InternalError;
        QString text;
        QVERIFY(refusedReader.readHead(head) && refusedReader.readRefusal(refusal, text));
        QVERIFY(head.kind == MessageKind::Exception && refusal == Refusal::UnknownMethod);
        QCOMPARE(text, "无"_s);
    }

    // Fields in any order, unknown ones, ones of another type: from a newer or an older end.
    void foreignFields()
    {
        const QByteArray bytes = bytesOf("0b0002 00000001 61"        // errString = "a", before the first
                                         "08 0001 00000005"          // errResult as a number: skipped
                                         "0f 0077 0c 00000002 00 00" // an unknown list of records
                                         "0d 0078 0b08 00000001 00000000 00000001"
                                         "00");
        ServerErrorInfo read;
        QCOMPARE(failureOf(bytes, read), -1);
        QCOMPARE(read, filled(&ServerErrorInfo::errString, "a"));
        QVERIFY(!read.__isset.errResult && read.__isset.errString);
    }

    void damagedMessages_data()
    {
        const auto row = zeltest::table<QByteArray>("bytes");
        const QByteArray good = withoutLength(callFrame("velaIpcCall", 7, envelope()));
        row("empty", {});
        row("not strict", bytesOf("0000000161") + good.mid(4));
        row("version 2", bytesOf("8002") + good.mid(2));
        row("unknown kind", bytesOf("80010009") + good.mid(4));
        row("long method name", bytesOf("80010001 00010000") + QByteArray(70000, 'x'));
        row("bytes after it", good + 'x');
        row("no record", good.left(23) + bytesOf("00"));
        row("record as a text", good.left(23) + bytesOf("0b0001 00000000 00"));
        for (int size = 1; size < good.size(); size += 7)
            QTest::addRow("cut at %d", size) << good.left(size);
    }
    void damagedMessages()
    {
        QFETCH(QByteArray, bytes);
        MessageReader reader(bytes.constData(), size_t(bytes.size()));
        MessageHead head;
        VelaIpcArg arg;
        QVERIFY(!(reader.readHead(head) && reader.readRequest(arg)));
        QVERIFY(!reader.error().isEmpty());
        QVERIFY(!reader.readRequest(arg)); // and stays so
    }

    void hostileRecords_data()
    {
        const auto row = zeltest::table<QByteArray, int>("bytes", "failure");
        constexpr int Size = TProtocolException::SIZE_LIMIT;
        constexpr int Short = TProtocolException::INVALID_DATA;
        row("nine bytes, two thousand million texts", bytesOf("0f0014 0b 77359400 00"), Size);
        row("negative count", bytesOf("0f0014 0b ffffffff"), Size);
        row("map of more than there is", bytesOf("0d001e 0b0b 00000003 0000"), Size);
        row("text of more than there is", bytesOf("0b0001 7fffffff 61"), Size);
        row("negative text", bytesOf("0b0001 ffffffff 61"), Size);
        row("unknown type of value", bytesOf("700001 00"), Short);
        row("cut number", bytesOf("0a0004 000000"), Short);
        row("deep enough", nestedRecords(int(DeepestNesting) - 2), -1);
        row("too deep", nestedRecords(int(DeepestNesting) + 1), int(TProtocolException::DEPTH_LIMIT));
        // Small in the frame, large in memory: a record takes one byte here and hundreds there.
        row("many empty records", bytesOf("0f0063 0c 00000100") + QByteArray(0x100 + 1, '\0'), Size);
        row("many records in all", bytesOf("0f0063 0c 00020000") + QByteArray(0x20000 * 9, '\0'), Size);
        // Lists in lists, each of them within its own limit.
        row("many entries in all",
            bytesOf("0f0063 0f 00000006")
                + QByteArray(bytesOf("03 000f0000") + QByteArray(0xf0000, 'x')).repeated(6) + '\0',
            Size);
    }
    void hostileRecords()
    {
        QFETCH(QByteArray, bytes);
        CloudItem item;
        QTEST(failureOf(bytes, item), "failure");
    }

    void tooLargeToSend()
    {
        VelaIpcResult answer;
        answer.resultString.assign(LargestText + 1, 'x');
        QVERIFY(replyFrame("velaIpcCall", 1, answer).isEmpty());
        answer.resultString.resize(LargestText);
        QVERIFY(!replyFrame("velaIpcCall", 1, answer).isEmpty());
        answer.resultList = {answer.resultString, "and a little more than a frame"};
        QVERIFY(replyFrame("velaIpcCall", 1, answer).isEmpty());
        answer = {};
        answer.resultList.resize(LargestContainer + 1);
        QVERIFY(replyFrame("velaIpcCall", 1, answer).isEmpty());
        QVERIFY(callFrame(std::string(LongestMethodName + 1, 'x'), 1, envelope()).isEmpty());
        QVERIFY(!callFrame("velaIpcCall", 1, envelope()).isEmpty()); // the writer is none the worse for it
    }

private:
    static QByteArray bytesOf(const char *hex) { return QByteArray::fromHex(hex); }
    static QByteArray withoutLength(const QByteArray &frame) { return frame.mid(4); }
    static VelaIpcArg envelope()
    {
        const auto arg =
            filled(&VelaIpcArg::nameSpace, "KVelaIpcCallObj", &VelaIpcArg::method, "reloadMessageConfig");
        return arg;
    }
    // What a record says when it is read from these bytes.
    static int failureOf(const QByteArray &bytes, apache::thrift::TBase &record)
    {
        BoundedReader reader(bytes.constData(), size_t(bytes.size()));
        try {
            record.read(&reader);
        } catch (const TProtocolException &exception) {
            return exception.getType();
        }
        return -1;
    }
    static QByteArray nestedRecords(int depth)
    {
        QByteArray bytes;
        for (int i = 0; i < depth; ++i)
            bytes += bytesOf("0c0063"); // an unknown field 99 that holds a record
        return bytes + QByteArray(depth + 1, '\0');
    }
};

QTEST_GUILESS_MAIN(TestMessage)
#include "tst_message.moc"

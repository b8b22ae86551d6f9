// All records and methods, checked against the interface description itself.
#include "description.h"

#include "cloud/wire/boundedreader.h"
#include "cloud/wire/message.h"
#include "cloud/wire/registry.h"
#include "common_types.h"
#include "notify_types.h"
#include "recent_types.h"

#include <sstream>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/transport/TBufferTransports.h>

using namespace apache::thrift;
using namespace zel::wire;
using zel::wire::test::Description;
using zel::wire::test::Field;
using zel::wire::test::Fields;

class TestRecords : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void counts()
    {
        int requests = 0;
        int answers = 0;
        for (const RecordType *record : allRecords()) {
            requests += record->name.ends_with("Arg") ? 1 : 0;
            answers += record->name.ends_with("Result") ? 1 : 0;
            QVERIFY(m_description.records().contains(QString::fromUtf8(record->name.data())));
        }
        QCOMPARE(allRecords().size(), size_t(620));
        QCOMPARE(m_description.records().size(), 620);
        QCOMPARE(requests, 289);
        QCOMPARE(answers, 247);
        QCOMPARE(findRecord("zel::vela::CloudItem"), findRecord("CloudItem"));
        for (const char *unknown : {"", "Cloud", "cloudItem", "vela::CloudItem", "zel::vela::", "QString"})
            QVERIFY2(!findRecord(unknown), unknown);
    }

    void fieldRules()
    {
        int extended = 0;
        for (auto it = m_description.records().cbegin(); it != m_description.records().cend(); ++it) {
            const QByteArray name = it.key().toUtf8();
            const Fields &fields = it.value();
            QVERIFY2(!fields.isEmpty(), name.constData());
            for (int i = 0; i < fields.size(); ++i) {
                QVERIFY2(fields.at(i).id == i + 1,
                    QByteArray(name + ": numbers from 1 on without a gap").constData());
                const bool isExtra = fields.at(i).name == "extraParam"_s;
                QVERIFY2(!isExtra || i == fields.size() - 1,
                    QByteArray(name + ": extraParam comes last").constData());
                const bool isRequired = fields.at(i).required == "required"_s;
                QVERIFY2(isRequired == (name == "VelaIpcArg"), name.constData());
            }
            const Field &last = fields.constLast();
            if (last.name != "extraParam"_s)
                continue;
            ++extended;
            QCOMPARE(last.typeName, "map"_s);
            QCOMPARE(last.type.value(QLatin1String("valueTypeId")).toString(), "string"_s);
        }
        QCOMPARE(extended, 587);
    }

    // The description says how bytes must look; the class reads them and writes the same ones again.
    void roundTrips()
    {
        QRandomGenerator random(20260101);
        for (const RecordType *type : allRecords()) {
            const QByteArray name = type->name.data();
            const QByteArray bytes = m_description.randomRecord(QString::fromUtf8(name), random);
            const AnyRecord record(*type);
            BoundedReader reader(bytes.constData(), size_t(bytes.size()));
            QCOMPARE(int(record.base().read(&reader)), 0);
            QCOMPARE(reader.bytesLeft(), size_t(0));
            QVERIFY2(written(record.base()) == bytes, name.constData());

            const AnyRecord again(*type);
            BoundedReader second(bytes.constData(), size_t(bytes.size()));
            again.base().read(&second);
            QVERIFY2(type->equal(record.object(), again.object()), name.constData());
            const AnyRecord empty(*type);
            QVERIFY2(!type->equal(record.object(), empty.object()), name.constData());
            std::ostringstream text;
            type->print(text, empty.object());
            QVERIFY2(text.str().starts_with(std::string(type->name) + "(") && text.str().ends_with(")"),
                name.constData());
        }
    }

    void laidDownRecords_data()
    {
        const auto row = zeltest::table<QString>("fields");
        row("VelaIpcResult", "state:i32 resultMap:map resultList:list resultString:string");
        row("ZelBoxAsynCommandLineArg", "commandline:string extraParam:map");
        row("RecentFileItemInfo",
            "cloudItem:struct fileInfo:struct mapParentItem:map mapGroupItem:map"
            " isShareByOthers:bool extraParam:map");
        row("MessageItem",
            "id:string ext:string ctime:string category:string bread:i32 bussType:i32"
            " msgContent:struct extraParam:map");
        row("GroupInfo",
            "state:i32 id:string ctime:i64 mtime:i64 name:string creator:string type:string"
            " cache:string userRole:string userAcl:struct member_count:i64 autoUpdate:bool"
            " creator_id:string creator_avatar:string companyId:string linkFolderId:string"
            " extraParam:map");
        row("FileEventItem",
            "fileName:string fileVersion:i64 fileSize:i64 ext:i64 parentId:string"
            " parentName:string oldName:string userId:string userName:string"
            " commentContent:string extraParam:map");
    }
    void laidDownRecords()
    {
        const Fields found = m_description.records().value(QString::fromUtf8(QTest::currentDataTag()));
        const auto text = [](const Field &field) -> QString { return field.name + ":"_s + field.typeName; };
        QTEST(zeltest::joined(found, text), "fields");
    }

    void metaTypes()
    {
        QSet<int> numbers;
        for (const RecordType *type : allRecords()) {
            const int id = type->metaType();
            numbers.insert(id);
            QCOMPARE(QMetaType::type(type->name.data()), id);
            QCOMPARE(QMetaType::type(type->spacedName), id);
        }
        QCOMPARE(numbers.size(), 620);
        // A class that declares itself to Qt elsewhere is the same type.
        QCOMPARE(qRegisterMetaType<zel::vela::CloudItem>("zel::vela::CloudItem"),
            recordOf("CloudItem"_s)->metaType());
    }

    void errorsInAnswers()
    {
        for (const RecordType *type : allRecords()) {
            QVERIFY2(bool(type->fail) == type->name.ends_with("Result"), type->name.data());
            if (!type->fail)
                continue;
            const AnyRecord answer(*type);
            type->fail(answer.object(), 1, filled(&zel::vela::ServerErrorInfo::errResult, "notServed"));
            std::ostringstream text;
            type->print(text, answer.object());
            QVERIFY2(text.str().find("notServed") != std::string::npos, type->name.data());
        }
    }

    void methods()
    {
        QSet<QByteArray> asked;
        QSet<QByteArray> told;
        for (const MethodType &method : allMethods()) {
            const QByteArray name = method.name.data();
            QVERIFY2(m_description.methods().contains(QString::fromUtf8(name)), name.constData());
            QVERIFY2(method.isPush != bool(method.answer), name.constData());
            QVERIFY2(!method.isPush || method.request, name.constData());
            QCOMPARE(method.isPush ? findPush(method.name) : findMethod(method.name), &method);
            for (const RecordType *type : {method.request, method.answer}) {
                if (type)
                    (method.isPush ? told : asked).insert(type->name.data());
            }
        }
        // Whatever is an argument or a result belongs to a method.
        for (const RecordType *type : allRecords()) {
            const QByteArray name = type->name.data();
            if (name.endsWith("Arg") || name.endsWith("Result"))
                QVERIFY2(asked.contains(name) || told.contains(name), name.constData());
        }
        QCOMPARE(QByteArray(findMethod("downloadFileFromCloud")->request->name.data()),
            QByteArray("DownloadCloudFileArg"));
        QCOMPARE(QByteArray(findMethod("folderUpload")->request->name.data()),
            QByteArray("UploadFolderToCloudArg"));
        QVERIFY(!findMethod("getLoginInfo")->request);
        QVERIFY(!findMethod("notifyFileCreation"));
        QVERIFY(!findPush("getVersion"));
    }

    void documentation()
    {
        QFile file(qEnvironmentVariable("ZEL_SOURCE_DIR") + "/docs/wire.md"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        for (auto it = m_description.records().cbegin(); it != m_description.records().cend(); ++it) {
            if (it->constLast().name != "extraParam"_s)
                QVERIFY2(text.contains("`" + it.key().toUtf8() + "`"), qPrintable(it.key()));
        }
    }

private:
    static QByteArray written(const TBase &record)
    {
        const auto buffer = std::make_shared<transport::TMemoryBuffer>();
        protocol::TBinaryProtocolT<transport::TMemoryBuffer> protocol(buffer);
        record.write(&protocol);
        return QByteArray::fromStdString(buffer->getBufferAsString());
    }
    static const RecordType *recordOf(const QString &name) { return findRecord(name.toStdString()); }

    Description m_description{qEnvironmentVariable("ZEL_WIRE_DESCRIPTIONS")};
};

QTEST_GUILESS_MAIN(TestRecords)
#include "tst_records.moc"

// docs/cloud-methods.md says of every method whether it is served; here it is held to that.
#include "service/methods/clouddocuments.h"
#include "servicefixture.h"

using namespace zel::service;

class TestMethodsDoc : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void saysWhatIsServed()
    {
        QFile file(qEnvironmentVariable("ZEL_SOURCE_DIR") + "/docs/cloud-methods.md"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QMap<QString, QString> documented;
        const QRegularExpression row("^\\| `(\\w+)` \\| (served|partly|not served) \\|"_s);
        for (const QByteArray &line : file.readAll().split('\n')) {
            const QRegularExpressionMatch match = row.match(QString::fromUtf8(line));
            if (match.hasMatch())
                documented.insert(match.captured(1), match.captured(2));
        }

        ServiceFixture fixture;
        CloudService &service = fixture.service();
        const CloudDocuments documents({"/nowhere"_s, "/nowhere/drive.db"_s}, service.database(),
            service.methods(), service.server(), service.hooks(), &service.subscriptions(),
            [&service] { return service.identity(); });
        for (const zel::wire::MethodType &method : zel::wire::allMethods()) {
            if (method.isPush)
                continue;
            const QString state = documented.take(QString::fromUtf8(method.name.data()));
            QVERIFY2(!state.isEmpty(), method.name.data());
            QVERIFY2((state == "not served"_s) != service.methods().isServed(method), method.name.data());
        }
        QCOMPARE(documented.keys(), QStringList()); // no row of a method that there is not
    }
};

QTEST_GUILESS_MAIN(TestMethodsDoc)
#include "tst_methodsdoc.moc"

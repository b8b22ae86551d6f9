#include "linkfixture.h"
#include "listener.h"

using namespace zel;
using Fixture = LinkFixture<KCloudSvrProxy>;

namespace {

int warnings = 0;

} // namespace

class TestSlots : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void slotForms_data()
    {
        const auto row = zeltest::table<QByteArray, bool>("slot", "fits");
        for (const char *slot :
            {"onResult", "onShortName", "onCopy", "onResponse", "onPrivate", "onInherited", "onOverloaded"})
            row(slot, QByteArray(slot), true);
        for (const char *slot : {"onTwo", "onNumber", "onChangeable", "onNowhere", ""})
            row(*slot ? slot : "no slot", QByteArray(slot), false);
    }
    void slotForms()
    {
        const auto [slot, fits] = zeltest::row<QByteArray, bool>();
        Fixture f;
        Listener listener;
        QVERIFY(f.connectNow());
        f.service->answerAll();
        warnings = 0;
        const QtMessageHandler usual =
            qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
                warnings += type == QtWarningMsg && text.contains("has no slot"_s) ? 1 : 0;
            });
        f.call(&listener, slot.constData());
        f.call(&listener, slot.constData());
        qInstallMessageHandler(usual);
        QCOMPARE(warnings, fits || slot.isEmpty() ? 0 : 1); // not once for each request
        f.call(&listener, "onResult");
        QTRY_COMPARE(f.service->methods.count("velaIpcCall"_s), 3);
        QTRY_COMPARE(listener.endings.size(), fits ? 3 : 1);
        if (fits)
            QCOMPARE(listener.endings.first().slot, QString::fromLatin1(slot));
        QVERIFY(std::all_of(
            listener.endings.begin(), listener.endings.end(), [](const auto &end) { return end.ok; }));
    }

    void requestIsWrittenAtOnce()
    {
        Fixture f;
        vela::VelaIpcArg came;
        f.service->serve = [&](const FakeService::Head &head, FakeService::Reader &reader) {
            if (head.method == "velaIpcCall")
                QVERIFY(reader.readRequest(came));
            f.service->answer(head);
        };
        QVERIFY(f.connectNow());
        Listener listener;
        f.call(&listener, "onResult", "the real one");
        QTRY_COMPARE(listener.endings.size(), 1);
        QCOMPARE(QByteArray::fromStdString(came.method), QByteArray("the real one"));

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("\"NoSuchArg\" is no record"_s));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot write the request copy"_s));
        f.proxy->asynCallEx("copy"_s, QGenericArgument("NoSuchArg", &came), &listener, "onResult"_s);
        QTRY_COMPARE(listener.endings.size(), 2);
        QVERIFY(!listener.endings.last().ok);
        vela::CloudDocSearchArg search;
        f.proxy->asynCallEx(
            "cloudDocSearch"_s, Q_ARG(zel::vela::CloudDocSearchArg, search), nullptr, QString());
        QTRY_COMPARE(f.service->methods.last(), "cloudDocSearch"_s);
    }

    void listCalls()
    {
        Fixture f;
        QVector<QStringList> came;
        f.service->serve = [&](const FakeService::Head &head, FakeService::Reader &reader) {
            QStringList texts;
            QVERIFY(reader.readRequestList(texts));
            came.append(texts);
            vela::VelaIpcResult result;
            result.resultList = {"a", "b"};
            result.resultString = "text:";
            f.service->reply(head, result);
        };
        QVERIFY(f.connectNow());
        Listener listener;
        const QStringList texts = {"ä|b"_s, QString()};
        f.proxy->asyncCall("redirect"_s, texts, &listener, "onResponse"_s);
        f.proxy->asyncCall("getUserId"_s, {}, &listener, "onResponse"_s);
        QTRY_COMPARE(listener.endings.size(), 2);
        QCOMPARE(came, (QVector<QStringList>{texts, {}}));
        QCOMPARE(listener.endings.first().text, "text:a,b"_s);
    }

    // Both answers come with one piece of the stream; the loop inside the first slot still gets the second.
    void eventLoopInASlot()
    {
        Fixture f;
        QByteArray answers;
        f.service->serve = [&](const FakeService::Head &head, FakeService::Reader &) {
            answers += wire::replyFrame(head.method, head.sequence, vela::VelaIpcResult());
            if (f.service->methods.count("velaIpcCall"_s) == 3)
                f.service->send(answers);
        };
        QVERIFY(f.connectNow());
        Listener listener;
        int depth = 0;
        listener.then = [&] {
            ++depth;
            QTRY_COMPARE(listener.endings.size(), 3);
        };
        QStringList ids;
        for (int i = 0; i < 3; ++i)
            ids.append(f.call(&listener, "onResult"));
        QTRY_COMPARE(listener.endings.size(), 3);
        QCOMPARE(depth, 3);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(listener.endings.at(i).id, ids.at(i));
        QVERIFY(f.proxy->isConnected());
    }

    void requestInASlot()
    {
        Fixture f;
        f.service->answerAll();
        QVERIFY(f.connectNow());
        Listener listener;
        listener.then = [&] {
            if (listener.endings.size() < 100)
                f.call(&listener, "onResult");
        };
        f.call(&listener, "onResult");
        QTRY_COMPARE(listener.endings.size(), 100);
    }

    void destroyedInASlot_data()
    {
        const auto row = zeltest::table<QString, QString>("what", "ending");
        for (const char *what : {"receiver", "proxy"}) {
            for (const char *ending : {"answer", "loss", "refusal"})
                row(QLatin1String(what) + QLatin1String(" at its ") + QLatin1String(ending), what, ending);
        }
    }
    void destroyedInASlot()
    {
        const auto [what, ending] = zeltest::row<QString, QString>();
        Fixture f;
        f.service->serve = [&](const FakeService::Head &head, FakeService::Reader &) {
            if (ending == "answer"_s)
                f.service->answer(head);
            else if (ending == "refusal"_s)
                f.service->send(
                    wire::refusalFrame(head.method, head.sequence, wire::Refusal::InternalError, {}));
            else
                f.service->hangUpSoon();
        };
        QVERIFY(f.connectNow());
        QPointer<Listener> listener(new Listener);
        Listener other;
        int called = 0;
        listener->then = [&] {
            ++called;
            if (what == "proxy"_s)
                f.proxy.reset();
            else
                delete listener.data();
        };
        for (int i = 0; i < 5; ++i) {
            f.call(listener, "onResult");
            f.call(&other, "onResult");
        }
        QTRY_COMPARE(called, 1);
        if (f.proxy)
            QTRY_COMPARE(other.endings.size(), 5);
        else
            QTest::qWait(30);
        QCOMPARE(called, 1);
        QCOMPARE(other.endings.size(), f.proxy ? 5 : 0);
        delete listener.data();
    }
};

QTEST_GUILESS_MAIN(TestSlots)
#include "tst_slots.moc"

// Choosing files, with the desktop's portal at the other end of a private bus, and without one.
#include "faults/faultcontrol.h"
#include "support/privatebus.h"
#include "support/temptree.h"
#include "widgets/filechooser.h"
#include "widgets/localfiledialog.h"

#include <QDBusArgument>
#include <QDBusVariant>

using Question = zel::FileQuestion;
Q_DECLARE_METATYPE(Question::Kind)

/// As portals are, of this version; 0: it hangs.
struct FakePortal
{
    QDBusMessage answer(const QDBusMessage &call)
    {
        if (call.member() == "Get"_s && version > 0)
            return call.createReply(QVariant::fromValue(QDBusVariant(version)));
        if (call.member() == "Close"_s)
            closed = call.path();
        if (call.member() != "OpenFile"_s)
            return {};
        options = qdbus_cast<QVariantMap>(call.arguments().value(2));
        request = "/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(
            call.service().mid(1).replace(QLatin1Char('.'), QLatin1Char('_')),
            options.value("handle_token"_s).toString());
        return call.createReply(QVariant::fromValue(QDBusObjectPath(request)));
    }

    uint version;
    QVariantMap options = {};
    QString request = {};
    QString closed = {};
    DesktopService service{"org.freedesktop.portal.Desktop"_s, "/org/freedesktop/portal/desktop"_s,
        [this](const QDBusMessage &call) { return answer(call); }};
};

class TestFileChooser : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_bus.isRunning(), "no dbus-daemon on this machine"); }

    void desktopIsAsked_data()
    {
        const auto row =
            zeltest::table<Question::Kind, int, QString, QString>("kind", "code", "uris", "chosen");
        row("files", Question::Kind::Files, 0, "file:///a/R%26D%20%C3%A4 file:///b", "/a/R&D ä,/b");
        row("folder", Question::Kind::Folder, 0, "file:///a", "/a");
        row("cancelled", Question::Kind::File, 1, "", "");
        row("nothing local", Question::Kind::File, 0, "https://example.org/a", "");
        row("page goes", Question::Kind::File, -1, "", "");
    }
    void desktopIsAsked()
    {
        const auto [kind, code, uris] = zeltest::row<Question::Kind, int, QString>();
        FakePortal portal{3};
        QStringList chosen;
        auto page = std::make_unique<QWidget>();
        for (int twice = 0; twice < 2; ++twice)
            FileChooser::ask({kind, "Title"_s, "OK"_s, {}}, page.get(),
                [&](const QStringList &paths) { chosen << paths.join(QLatin1Char(',')); });
        QTRY_VERIFY(!portal.request.isEmpty());
        QCOMPARE(portal.options.value("multiple"_s).toBool(), kind == Question::Kind::Files);
        QCOMPARE(portal.options.value("directory"_s).toBool(), kind == Question::Kind::Folder);
        if (code < 0) {
            page.reset();
            QTRY_COMPARE(portal.closed, portal.request);
            return;
        }
        PrivateBus::desktop().send(
            QDBusMessage::createSignal(portal.request, "org.freedesktop.portal.Request"_s, "Response"_s)
            << uint(code) << QVariantMap{{"uris"_s, uris.split(QLatin1Char(' '))}});
        QTRY_VERIFY(!page->findChild<FileChooser *>());
        QTEST(chosen.join(QLatin1Char(' ')), "chosen");
        QVERIFY(!page->findChild<QDialog *>());
    }

    void withoutAPortal_data()
    {
        zeltest::rows<int>("version", {{"none", -1}, {"hangs", 0}, {"without folders", 2}});
    }
    void withoutAPortal()
    {
        QFETCH(int, version);
        const std::unique_ptr<FakePortal> portal(version < 0 ? nullptr : new FakePortal{uint(version)});
        QWidget page;
        page.show();
        QStringList chosen;
        FileChooser::ask({Question::Kind::Folder, "Title"_s, "OK"_s, {}}, &page,
            [&](const QStringList &paths) { chosen = paths; });
        QTRY_VERIFY(page.findChild<LocalFileDialog *>());
        page.findChild<QLineEdit *>()->setText("/typed/../folder"_s);
        page.findChild<LocalFileDialog *>()->accept();
        QCOMPARE(chosen, QStringList("/folder"_s));
    }

    // In the home a mount that never answers: what is beside it is there, and the dialog comes and goes.
    void deadMountInTheHome()
    {
        FaultControl *faults = qEnvironmentVariableIsSet("ZEL_FAULTS")
            ? openFaultControl(qgetenv("ZEL_FAULTS").constData())
            : nullptr;
        if (!faults)
            QSKIP("no layer that lets calls hang");
        const zeltest::TempTree home({"dead/inside"_s, "b/c"_s, "a.txt"_s, "link->b"_s});
        qstrncpy(faults->folder, home.bytes("dead").constData(), sizeof(faults->folder));
        faults->takes[FaultControl::Looks] = faults->takes[FaultControl::Reads] = 60'000; // ms
        auto dialog = std::make_unique<LocalFileDialog>(
            Question{Question::Kind::Files, "Title"_s, "OK"_s, home.path()});
        dialog->show();
        auto *tree = dialog->findChild<QTreeView *>();
        const QPersistentModelIndex top = tree->currentIndex();
        const auto names = [tree](const QModelIndex &folder) {
            QStringList all;
            for (int row = 0; row < tree->model()->rowCount(folder); ++row)
                all << tree->model()->index(row, 0, folder).data().toString();
            return all.join(QLatin1Char(' '));
        };
        QTRY_COMPARE(names(top), "b dead link a.txt"_s);
        for (const int row : {1, 0})
            tree->expand(tree->model()->index(row, 0, top));
        QTRY_COMPARE(names(tree->model()->index(0, 0, top)), "c"_s);
        QElapsedTimer taken;
        taken.start();
        dialog->reject();
        dialog.reset();
        QVERIFY(taken.elapsed() < 2000);
        *faults->folder = 0;
    }

private:
    PrivateBus m_bus;
};

QTEST_MAIN(TestFileChooser)
#include "tst_filechooser.moc"

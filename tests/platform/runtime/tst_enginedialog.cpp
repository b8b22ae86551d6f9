#include "kcefloadingprogressdlg.h"

using Act = std::function<void(KCefLoadingProgressDlg &)>;
Q_DECLARE_METATYPE(Act)

class EngineDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { KxCefEngine::instance()->setState(KxCefEngine::Ready); }

    void endings_data()
    {
        const auto row = zeltest::table<KxCefEngine::State, int, Act>("first", "result", "act");
        const auto engine = [](KxCefEngine::State state) {
            return [state](KCefLoadingProgressDlg &) { KxCefEngine::instance()->setState(state); };
        };
        using Engine = KxCefEngine;
        row("becomes ready", Engine::Loading, QDialog::Accepted, engine(Engine::Ready));
        row("was ready before", Engine::Ready, QDialog::Accepted, [](KCefLoadingProgressDlg &) {});
        row("Cancel clicked", Engine::Loading, QDialog::Rejected,
            [](KCefLoadingProgressDlg &d) { QTest::mouseClick(button(d, Cancel), Qt::LeftButton); });
        row("missing, goes on without", Engine::Missing, QDialog::Accepted,
            [](KCefLoadingProgressDlg &d) { QTest::mouseClick(button(d, GoOn), Qt::LeftButton); });
        row("fails, Return", Engine::Loading, QDialog::Accepted, [=](KCefLoadingProgressDlg &d) {
            engine(Engine::Failed)(d);
            QTest::keyClick(&d, Qt::Key_Return);
        });
        row("fails, loads again, ready", Engine::Failed, QDialog::Accepted, [=](KCefLoadingProgressDlg &d) {
            engine(Engine::Loading)(d);
            engine(Engine::Ready)(d);
        });
    }
    void endings()
    {
        QFETCH(KxCefEngine::State, first);
        QFETCH(Act, act);
        KxCefEngine::instance()->setState(first);
        KCefLoadingProgressDlg dialog;
        QTimer::singleShot(0, &dialog, [&] { act(dialog); });
        QTEST(dialog.exec(), "result");
    }

private:
    static QPushButton *button(QWidget &dialog, const QString &text)
    {
        const auto buttons = dialog.findChildren<QPushButton *>();
        for (QPushButton *candidate : buttons) {
            if (candidate->text().remove(QLatin1Char('&')) == text)
                return candidate;
        }
        return nullptr;
    }
    static inline const QString Cancel = "Cancel"_s;
    static inline const QString GoOn = "Continue without"_s;
};

QTEST_MAIN(EngineDialogTest)
#include "tst_enginedialog.moc"

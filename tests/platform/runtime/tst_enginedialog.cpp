#include "kcefloadingprogressdlg.h"
#include "support/table.h"

#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

using Act = std::function<void(KCefLoadingProgressDlg &)>;
Q_DECLARE_METATYPE(Act)

namespace {

QPushButton *button(QWidget &dialog, const QString &text)
{
    const auto buttons = dialog.findChildren<QPushButton *>();
    for (QPushButton *candidate : buttons) {
        if (candidate->text().remove(QLatin1Char('&')) == text)
            return candidate;
    }
    return nullptr;
}

const QString Cancel = QStringLiteral("Cancel");
const QString GoOn = QStringLiteral("Continue without");

} // namespace

class EngineDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { KxCefEngine::instance()->setState(KxCefEngine::Ready); }

    void endings_data()
    {
        const auto row = zeltest::table<KxCefEngine::State, Act, int>("first", "act", "result");
        const auto engine = [](KxCefEngine::State state) {
            return [state](KCefLoadingProgressDlg &) { KxCefEngine::instance()->setState(state); };
        };
        row("becomes ready", KxCefEngine::Loading, engine(KxCefEngine::Ready), QDialog::Accepted);
        row(
            "was ready before", KxCefEngine::Ready, [](KCefLoadingProgressDlg &) {}, QDialog::Accepted);
        row(
            "Cancel clicked", KxCefEngine::Loading,
            [](KCefLoadingProgressDlg &d) { QTest::mouseClick(button(d, Cancel), Qt::LeftButton); },
            QDialog::Rejected);
        row(
            "missing, goes on without", KxCefEngine::Missing,
            [](KCefLoadingProgressDlg &d) { QTest::mouseClick(button(d, GoOn), Qt::LeftButton); },
            QDialog::Accepted);
        row(
            "fails, Return", KxCefEngine::Loading,
            [](KCefLoadingProgressDlg &d) {
                KxCefEngine::instance()->setState(KxCefEngine::Failed);
                QTest::keyClick(&d, Qt::Key_Return);
            },
            QDialog::Accepted);
        row(
            "fails, loads again, ready", KxCefEngine::Failed,
            [](KCefLoadingProgressDlg &) {
                KxCefEngine::instance()->setState(KxCefEngine::Loading);
                KxCefEngine::instance()->setState(KxCefEngine::Ready);
            },
            QDialog::Accepted);
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
};

QTEST_MAIN(EngineDialogTest)
#include "tst_enginedialog.moc"

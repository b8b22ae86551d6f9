// Every dialog of the box, as it is painted: one frame, and texts that can be read.
#include "account_types.h"
#include "app/goingon.h"
#include "app/ui/endingdialog.h"
#include "app/ui/folderselectordlg.h"
#include "app/ui/syncfolderdlg.h"
#include "app/ui/zelboxexitdialog.h"
#include "clouddoc/ui/conflictdialog.h"
#include "clouddoc/ui/movedialog.h"
#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "recentfile/ui/recentdialogs.h"
#include "recentfile/ui/recentguides.h"
#include "recentfile/ui/sharedialog.h"
#include "settings/ui/confirmdialog.h"
#include "support/contrast.h"
#include "support/fakecloud.h"

namespace {

constexpr int Scale = 3; // so that strokes have a pixel without an edge

/// Between the ground of a part of the picture and what stands out from it most.
qreal contrastIn(const QImage &picture, const QRect &part)
{
    QHash<QRgb, int> counts;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    QRgb ground = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > counts.value(ground))
            ground = it.key();
    }
    qreal best = 1;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() >= Scale * Scale)
            best = qMax(best, contrast(QColor(it.key()), QColor(ground)));
    }
    return best;
}

RecentFileInfo document()
{
    RecentFileInfo record;
    record.id = record.path = "/docs/A report with a name that is not exactly short.odt"_s;
    record.roamingId = "r1"_s;
    return record;
}

CloudConflicts conflicts()
{
    CloudConflict one;
    one.name = "report.odt"_s;
    one.suggestedName = "report (2).odt"_s;
    return {one};
}

} // namespace

Q_DECLARE_METATYPE(std::function<BoxDialog *()>)

class TestDialogs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(new KLiteStyle);
        QApplication::setFont(KLiteStyle::applicationFont());
    }

    void oneFrame_data()
    {
        using Make = std::function<BoxDialog *()>;
        const auto row = zeltest::table<Make, bool, bool>("make", "dark", "hasFixedSize");
        const QVector<std::pair<const char *, Make>> dialogs{
            {"remove", [] { return new RemoveRecordDialog({document()}); }},
            {"delete", [] { return new DeleteFileDialog("a.odt"_s, 1); }},
            {"share", [] { return new ShareDialog(document()); }},
            {"roaming guide", [] { return new ZelBoxRecentFileGuideDialog; }},
            {"conflict", [] { return new ConflictDialog(CloudOperation::Copy, conflicts()); }},
            {"move",
                [this] { return new MoveDialog(&m_cloud, {}, "a"_s, [](const QString &) { return true; }); }},
            {"exit", [] { return new ZelBoxExitDialog; }},
            {"ending", [] { return new EndingDialog; }},
            {"folder", [] { return new FolderSelectorDlg; }},
            {"synchronise", [] { return new SyncFolderDlg; }},
            {"confirm", [] { return new ConfirmDialog("Title"_s, "Clear it all?"_s, "Clear"_s, nullptr); }},
        };
        for (const auto &[name, make] : dialogs) {
            for (const bool dark : {false, true})
                row(QLatin1String(name) + (dark ? ", dark"_s : ", light"_s), make, dark,
                    !QByteArrayList({"move", "folder"}).contains(name));
        }
    }
    void oneFrame()
    {
        const auto [make, dark] = zeltest::row<std::function<BoxDialog *()>, bool>();
        KSkin::setTheme(dark ? KSkin::Theme::Dark : KSkin::Theme::Light);
        QApplication::setPalette(KLiteStyle::palette(dark));
        const std::unique_ptr<BoxDialog> dialog(make());
        dialog->setAttribute(Qt::WA_DeleteOnClose, false);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
        QVERIFY(dialog->width() >= KLiteStyle::dpiScaled(zel::look::DialogWidth));
        QVERIFY(!(dialog->windowFlags() & (Qt::WindowMinMaxButtonsHint | Qt::WindowContextHelpButtonHint)));
        QTEST(dialog->minimumSize() == dialog->maximumSize(), "hasFixedSize");
        int defaults = 0;
        for (const QPushButton *button : dialog->findChildren<QPushButton *>())
            defaults += button->isDefault() ? 1 : 0;
        QVERIFY(defaults <= 1);

        QImage picture(dialog->size() * Scale, QImage::Format_RGB32);
        picture.setDevicePixelRatio(Scale);
        dialog->render(&picture);
        int texts = 0;
        for (const QWidget *widget : dialog->findChildren<QWidget *>()) {
            const auto *label = qobject_cast<const QLabel *>(widget);
            const auto *button = qobject_cast<const QAbstractButton *>(widget);
            const QString text = label ? label->text() : button ? button->text() : QString();
            if (text.isEmpty() || !widget->isVisible() || !widget->isEnabled())
                continue;
            ++texts;
            if (label && label->wordWrap())
                QVERIFY2(label->heightForWidth(label->width()) <= label->height(), qPrintable(text));
            else
                QVERIFY2(widget->sizeHint().width() <= widget->width(), qPrintable(text));
            const int edge = button ? 4 : 0; // what is painted around the text
            const QRect part = QRect(widget->mapTo(dialog.get(), QPoint()), widget->size())
                                   .adjusted(edge, edge, -edge, -edge);
            const qreal measured = contrastIn(picture, {part.topLeft() * Scale, part.size() * Scale});
            QVERIFY2(measured >= 4.5, qPrintable("%1: %2"_s.arg(text).arg(measured)));
        }
        QVERIFY(texts >= 3);
    }

    void exitHasTheDefaultThatWasMeant()
    {
        ZelBoxExitDialog dialog;
        QSignalSpy exits(&dialog, &ZelBoxExitDialog::exitChosen);
        QSignalSpy stays(&dialog, &ZelBoxExitDialog::backgroundChosen);
        for (const bool wanted : {true, false}) {
            dialog.show();
            dialog.setExitWanted(wanted);
            QTest::keyClick(&dialog, Qt::Key_Return);
            QCOMPARE(exits.count(), 1);
            QCOMPARE(stays.count(), wanted ? 0 : 1);
        }
    }

    // Each change is asked about, and a service that goes takes what it did along.
    void transfersAreTold()
    {
        GoingOn goingOn;
        QSignalSpy changed(&goingOn, &GoingOn::changed);
        goingOn.follow(&m_cloud);
        m_cloud.connectNow();
        const auto answer = [&](int count) {
            return m_cloud.answer(
                "notifyExit", filled(&zel::vela::NotifyExitResult::runningTaskCount, count));
        };
        QVERIFY(answer(0));
        m_cloud.push("notifyFileTransfer", zel::vela::NotifyFileTransferArg());
        m_cloud.push("notifyFileTransfer", zel::vela::NotifyFileTransferArg());
        QTRY_COMPARE(m_cloud.waiting("notifyExit"), 1);
        QVERIFY(answer(2));
        m_cloud.disconnectNow();
        QCOMPARE(changed, QList<QVariantList>({{2}, {0}}));
    }

private:
    FakeCloud m_cloud;
};

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"

#include "recentfile/ui/feedbackdialog.h"

#include "base/version.h"
#include "widgets/choicebutton.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString details(const QString &problem)
{
    return QStringLiteral("%1\nZEL Box %2, Qt %3, %4, %5\n%6 (%7)\n%8\n")
        .arg(problem, zel::version(), QLatin1String(qVersion()), QGuiApplication::platformName(),
            QLocale::system().name(), QSysInfo::prettyProductName(), QSysInfo::kernelVersion(),
            QDateTime::currentDateTime().toString(Qt::ISODate));
}

} // namespace

FeedbackDialog::FeedbackDialog(const QString &problem, QWidget *parent)
    : BoxDialog(tr("Feedback"), tr("Tell those who look after this computer"), parent)
{
    addText(tr("Nothing is sent by itself. These help to find out what happened:"));
    addChoice(QStringLiteral("copy"), tr("Copy the details"),
        tr("What happened, the version and the system."),
        [problem] { QApplication::clipboard()->setText(details(problem)); });
    addChoice(QStringLiteral("folder_open"), tr("Show the log"), tr("To add it to a mail."),
        [this] { Q_EMIT logRequested(); });
    buttons()->addButton(tr("Close"), QDialogButtonBox::RejectRole)->setAutoDefault(false);
}

void FeedbackDialog::addChoice(
    const QString &icon, const QString &text, const QString &explanation, const std::function<void()> &chosen)
{
    auto *button = new ChoiceButton(QStringLiteral(":/icons_svg/%1.svg").arg(icon), text, explanation, this);
    connect(button, &QAbstractButton::clicked, this, chosen);
    body()->addWidget(button);
}

#include "desktopopen.h"

#include "base/logging.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

namespace zel::platform {
namespace {

// Where no desktop has an opener of its own, it stays as long as the program that it has started.
constexpr std::chrono::seconds LongEnough(5);

QProcess *desktopOpener(const QString &path)
{
    auto *process = new QProcess; // without an owner, whose end would end it
    QObject::connect(
        process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), process, &QObject::deleteLater);
    process->setProgram(QStandardPaths::findExecutable(QStringLiteral("xdg-open")));
    process->setArguments({QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())});
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    return process;
}

} // namespace

void openByDesktop(const QString &path, QObject *context, const std::function<void(bool)> &then)
{
    QProcess *process = desktopOpener(path);
    auto *patience = new QTimer(context);
    const auto settle = [=](bool opened) {
        process->disconnect(patience);
        patience->deleteLater();
        then(opened); // last: may destroy the context
    };
    QObject::connect(patience, &QTimer::timeout, patience, [=] { settle(true); });
    QObject::connect(process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), patience,
        [=](int code, QProcess::ExitStatus status) {
            if (code != 0)
                qCInfo(lcPlatform, "the desktop's opener said %d", code);
            settle(code == 0 && status == QProcess::NormalExit);
        });
    QObject::connect(process, &QProcess::errorOccurred, patience, [=](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        process->deleteLater();
        settle(false);
    });
    patience->setSingleShot(true);
    patience->start(LongEnough);
    process->start();
}

} // namespace zel::platform

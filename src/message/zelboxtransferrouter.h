#pragma once

#include <QObject>

/// Tells the file-transfer page where a command came from and what it is to show. GUI thread; one per
/// process.
class ZelBoxTransferRouter : public QObject
{
    Q_OBJECT
public:
    static ZelBoxTransferRouter *instance();

Q_SIGNALS:
    void sigSourceFrom(const QString &source); ///< "traymenu", "traystatus" or "other"
    void sigShowTransferError();

private:
    ZelBoxTransferRouter() = default;
};

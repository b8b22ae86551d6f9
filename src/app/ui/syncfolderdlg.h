#pragma once

#include "widgets/boxdialog.h"

class QLabel;
class QPushButton;

/// Shows the folder that a command asks to synchronise. Synchronising needs a cloud account, which this
/// version has not got, and the dialog says so; the folder can be opened from here. GUI thread.
class SyncFolderDlg : public BoxDialog
{
    Q_OBJECT
public:
    explicit SyncFolderDlg(QWidget *parent = nullptr);

    void setParameter(const QString &folder);
    QString parameter() const { return m_folder; }

private:
    QString m_folder;
    QLabel *m_path;
    QLabel *m_problem;
    QPushButton *m_open;
};

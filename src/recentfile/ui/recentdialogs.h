#pragma once

#include "widgets/boxdialog.h"

/// Asks before records are taken off the list. GUI thread; accepted() is the yes.
class RemoveRecordDialog : public BoxDialog
{
    Q_OBJECT
public:
    /// `name` of the only file; empty for several.
    RemoveRecordDialog(const QString &name, int count, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
};

/// Asks before files go to the recycle bin.
class DeleteFileDialog : public BoxDialog
{
    Q_OBJECT
public:
    DeleteFileDialog(const QString &name, int count, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
};

#pragma once

#include "krecentfile.h"
#include "widgets/boxdialog.h"

/// Asks before records are taken off the list. GUI thread; accepted() is the yes.
class RemoveRecordDialog : public BoxDialog
{
    Q_OBJECT
public:
    /// Says so where it cannot be taken back everywhere.
    explicit RemoveRecordDialog(const RecordInfoList &records, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
};

/// Asks before files go to the recycle bin.
class DeleteFileDialog : public BoxDialog
{
    Q_OBJECT
public:
    /// `name` of the only file.
    DeleteFileDialog(const QString &name, int count, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
};

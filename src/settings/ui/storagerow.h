#pragma once

#include "settings/storage.h"

#include <QWidget>

class QLabel;
class QPushButton;

/// One thing that the box keeps: what it is for, where it is, how large, and what can be done about it. GUI
/// thread.
class StorageRow final : public QWidget
{
    Q_OBJECT
public:
    StorageRow(const zel::settings::StoragePlace &place, QWidget *parent = nullptr);

    void setUse(const zel::settings::StorageUse &use);
    QPushButton *clearButton() const { return m_clear; } ///< null where clearing makes no sense

    static QString title(zel::settings::StorageKind kind);

Q_SIGNALS:
    void showFolderRequested();
    void clearRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void elidePath();

    zel::settings::StoragePlace m_place;
    QLabel *m_path;
    QLabel *m_size;
    QPushButton *m_clear = nullptr;
};

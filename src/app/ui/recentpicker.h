#pragma once

#include <QWidget>

class KRecentFileLogic;
class QLabel;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class ZelBoxRecentFileModel;

/// A search field over the recent documents, newest first: type to narrow the list, Enter opens. GUI thread.
class RecentPicker : public QWidget
{
    Q_OBJECT
public:
    explicit RecentPicker(QWidget *parent = nullptr);
    ~RecentPicker() override;

    void focusInput();   ///< and selects what is in it
    void startLoading(); ///< on the first show of the window that holds it

Q_SIGNALS:
    void documentOpened(); ///< the desktop was asked to open one

protected:
    bool eventFilter(QObject *watched, QEvent *event) override; // Up and Down in the field move in the list

private:
    void openCurrent();
    void updateState();

    ZelBoxRecentFileModel *m_model;
    KRecentFileLogic *m_logic;
    QSortFilterProxyModel *m_filter;
    QLineEdit *m_input;
    QListView *m_list;
    QLabel *m_nothing;
    QString m_opening; // path of what the desktop was asked to open
};

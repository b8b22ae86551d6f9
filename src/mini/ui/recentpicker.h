#pragma once

#include "recentfile/recentfilelogic.h"

#include <QWidget>

class EmptyStateWidget;
class NoticeBar;
class QKeyEvent;
class RecentSortFilterModel;
class SearchField;
class SectionListView;
class ZelBoxRecentFileModel;

/// A search field over the recent documents, newest first: type to narrow the list, Up and Down choose, Enter
/// or a click opens, Ctrl+Enter shows the file in its folder; the Menu key and a right click offer both. GUI
/// thread. The keyboard stays in the field.
class RecentPicker : public QWidget
{
    Q_OBJECT
public:
    using Services = KRecentFileLogic::Services;

    explicit RecentPicker(QWidget *parent = nullptr) : RecentPicker(Services(), parent) { }
    explicit RecentPicker(const Services &services, QWidget *parent = nullptr);
    ~RecentPicker() override;

    void focusInput();                   ///< and selects what is in it
    bool clearInput();                   ///< false when nothing was in it
    void startLoading();                 ///< on the first show of the window that holds it
    void setPopupsAllowed(bool allowed); ///< false: neither field nor rows open a menu

    SearchField *input() const { return m_input; }
    SectionListView *list() const { return m_list; }

Q_SIGNALS:
    void documentOpened(); ///< the desktop was asked to open one

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override; // keys of the field that are the list's

private:
    void layOut();
    void connectModels();
    void connectInput();
    bool handleKey(QKeyEvent *event);
    QModelIndex chosen() const;
    void openRow(const QModelIndex &row);
    void revealRow(const QModelIndex &row);
    void showMenu(const QPoint &inList);
    void chooseFirst();
    void updateState();
    void checkPresence(const QModelIndexList &shown);

    ZelBoxRecentFileModel *m_model;
    KRecentFileLogic *m_logic;
    RecentSortFilterModel *m_rows;
    SearchField *m_input;
    SectionListView *m_list;
    EmptyStateWidget *m_nothing;
    NoticeBar *m_notice;
};

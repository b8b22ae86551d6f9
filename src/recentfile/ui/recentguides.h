#pragma once

#include "widgets/boxdialog.h"
#include "widgets/emptystate.h"

#include <QFrame>

class QLabel;
class QPushButton;

/// What the page shows when there is no recent file. GUI thread.
class ZelBoxRecentFileEmptyGuideWidget : public EmptyStateWidget
{
    Q_OBJECT
public:
    enum class Reason { NothingOpened, NotLoggedIn, RoamingOff };

    explicit ZelBoxRecentFileEmptyGuideWidget(QWidget *parent = nullptr);

    void setReason(Reason reason);
    Reason reason() const { return m_reason; }

Q_SIGNALS:
    void openFileRequested();
    void loginRequested();
    void enableRoamingRequested();

private:
    void onOffered();

    Reason m_reason = Reason::NothingOpened;
    QPushButton *m_offer; ///< signs in or switches roaming on
};

/// What the page shows when no file passes the filter.
class RecentNothingFoundWidget : public EmptyStateWidget
{
    Q_OBJECT
public:
    explicit RecentNothingFoundWidget(QWidget *parent = nullptr);

Q_SIGNALS:
    void clearRequested();
};

/// A strip above the list for who has switched roaming off: what it would do, and the switch. Hidden at
/// first; a strip that was closed stays closed for this run.
class ZelBoxRecentFileRoamingGuideWidget : public QFrame
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileRoamingGuideWidget(QWidget *parent = nullptr);

    void setNeeded(bool needed);

Q_SIGNALS:
    void enableRoamingRequested();
    void explanationRequested();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_closed = false;
};

/// Explains how files of other devices come into the list.
class ZelBoxRecentFileGuideDialog : public BoxDialog
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileGuideDialog(QWidget *parent = nullptr);

Q_SIGNALS:
    void settingsRequested();

protected:
    void showEvent(QShowEvent *event) override;
};

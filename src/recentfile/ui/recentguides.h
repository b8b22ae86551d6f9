#pragma once

#include "widgets/boxdialog.h"
#include "widgets/emptystate.h"
#include "widgets/noticebar.h"

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

/// A notice for who has switched roaming off: what it would do, and the switch. Hidden at first; once closed
/// it stays closed for this run.
class ZelBoxRecentFileRoamingGuideWidget : public NoticeBar
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileRoamingGuideWidget(QWidget *parent = nullptr);

    void setNeeded(bool needed);

Q_SIGNALS:
    void enableRoamingRequested();
    void explanationRequested();

private:
    bool m_needed = false;
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

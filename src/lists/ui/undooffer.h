#pragma once

#include "widgets/noticebar.h"

#include <QObject>
#include <functional>

class QAction;

/// What a page can take back: the last thing that the user did there, until the next one. By the button of a
/// notice, by the page's action (menu and Ctrl+Z); the notice goes after a while, the offer stays. GUI
/// thread.
class UndoOffer : public QObject
{
    Q_OBJECT
public:
    /// `action` becomes enabled while there is something to take back. Both outlive it.
    UndoOffer(NoticeBar *notice, QAction *action, QObject *parent = nullptr);

    /// `done` is said: what was done, in a sentence; empty: only the action offers it. `name` is that of the
    /// action meanwhile ("Undo Removal"). `undo` runs at most once. Takes the place of the offer before.
    void offer(const QString &done, const QString &name, std::function<void()> undo,
        NoticeBar::Tone tone = NoticeBar::Tone::Info);
    void withdraw(); ///< the user has done what cannot be taken back, or the offer means nothing any more
    bool isOpen() const { return bool(m_undo); }
    void undo(); ///< does nothing without an offer

private:
    NoticeBar *m_notice;
    QAction *m_action;
    QString m_plainName; ///< of the action while there is no offer
    std::function<void()> m_undo;
};

#include "lists/ui/undooffer.h"

#include <QAction>

UndoOffer::UndoOffer(NoticeBar *notice, QAction *action, QObject *parent)
    : QObject(parent), m_notice(notice), m_action(action), m_plainName(action->text())
{
    m_action->setEnabled(false);
    connect(m_notice, &NoticeBar::actionTriggered, this, &UndoOffer::undo);
}

void UndoOffer::offer(
    const QString &done, const QString &name, std::function<void()> undo, NoticeBar::Tone tone)
{
    m_undo = std::move(undo);
    m_action->setText(name);
    m_action->setEnabled(true);
    if (done.isEmpty())
        m_notice->hide();
    else
        m_notice->showAction(done, tr("Undo"), tone);
}

void UndoOffer::withdraw()
{
    m_undo = nullptr;
    m_action->setText(m_plainName);
    m_action->setEnabled(false);
    m_notice->hide();
}

void UndoOffer::undo()
{
    if (const auto undo = m_undo) {
        withdraw();
        undo();
    }
}

#include "lists/ui/openingnotices.h"

#include "widgets/nametext.h"
#include "widgets/noticebar.h"

#include <QFileInfo>

QString openProblemText(DocumentOpening::Problem problem, const QString &name)
{
    const QString shown = zel::shortName(name);
    switch (problem) {
    case DocumentOpening::Problem::Missing:
        return OpeningNotices::tr("“%1” is no longer there.").arg(shown);
    case DocumentOpening::Problem::NotReadable:
        return OpeningNotices::tr("You do not have permission to read “%1”.").arg(shown);
    case DocumentOpening::Problem::NoProgram:
        return OpeningNotices::tr("No program on this computer opens “%1”.").arg(shown);
    case DocumentOpening::Problem::NoAnswer:
        return OpeningNotices::tr("The place of “%1” does not answer.").arg(shown);
    case DocumentOpening::Problem::NotOnThisDevice:
        return shown.isEmpty() ? OpeningNotices::tr("This file is on another device only.")
                               : OpeningNotices::tr("“%1” is on another device only.").arg(shown);
    }
    return {};
}

OpeningNotices::OpeningNotices(DocumentOpening *opening, NoticeBar *notice, QObject *parent)
    : QObject(parent), m_opening(opening), m_notice(notice)
{
    connect(opening, &DocumentOpening::waitedForChanged, this, &OpeningNotices::tellWaiting);
    connect(notice, &NoticeBar::actionTriggered, this, [this] {
        if (!m_waiting.isEmpty() && m_notice->text() == m_waiting) // else it is about something else
            m_opening->cancelWaiting();
    });
    connect(opening, &DocumentOpening::failed, this, &OpeningNotices::tell);
    connect(opening, &DocumentOpening::revealFailed, this, &OpeningNotices::tellFolder);
}

bool OpeningNotices::mayOpen(int documents)
{
    constexpr int Most = DocumentOpening::MostAtOnce;
    if (documents > Most)
        m_notice->showText(tr("At most %Ln documents are opened at once.", nullptr, Most));
    return documents <= Most;
}

void OpeningNotices::tell(const QString &name, DocumentOpening::Problem problem)
{
    m_notice->showText(openProblemText(problem, name));
}

void OpeningNotices::tellWaiting()
{
    const QStringList paths = m_opening->waitedFor();
    const QString before = m_waiting;
    m_waiting = paths.isEmpty() ? QString()
        : paths.size() == 1
        ? tr("Waiting for the place of “%1”…").arg(zel::shortName(QFileInfo(paths.constFirst()).fileName()))
        : tr("Waiting for the places of %Ln documents…", nullptr, paths.size());
    if (!paths.isEmpty())
        m_notice->showAction(m_waiting, tr("Cancel"), NoticeBar::Tone::Info, NoticeBar::Stay);
    else if (m_notice->text() == before)
        m_notice->hide();
}

void OpeningNotices::tellFolder(const QString &path, bool missing)
{
    const QString name = zel::shortName(QFileInfo(path).fileName());
    m_notice->showText(missing ? tr("The folder of “%1” is no longer there.").arg(name)
                               : tr("The folder of “%1” cannot be shown.").arg(name));
}

#include "recentfile/ui/recentstorenotices.h"

#include "recentfile/recentfilelogic.h"
#include "widgets/nametext.h"
#include "widgets/noticearea.h"
#include "widgets/noticebar.h"

#include <QFileInfo>

RecentStoreNotices::RecentStoreNotices(KRecentFileLogic *logic, NoticeArea *notices, QObject *parent)
    : QObject(parent), m_keeping(notices->addBar()), m_folders(notices->addBar())
{
    connect(logic, &KRecentFileLogic::keepingChanged, this, &RecentStoreNotices::tellKeeping);
    connect(logic, &KRecentFileLogic::foldersLeftOut, this, &RecentStoreNotices::tellFolders);
    if (logic->keeping() == RecentKeeping::NotKept) // the page was made anew meanwhile
        tellKeeping(RecentKeeping::NotKept);
}

void RecentStoreNotices::tellKeeping(RecentKeeping keeping)
{
    using Tone = NoticeBar::Tone;
    switch (keeping) {
    case RecentKeeping::Kept:
        return m_keeping->showText(tr("The list of recent documents is saved again."), Tone::Info);
    case RecentKeeping::NotKept:
        return m_keeping->showText(tr("The list of recent documents cannot be saved at present. What is "
                                      "changed here may be lost when ZEL Box ends."),
            Tone::Problem, NoticeBar::Stay);
    case RecentKeeping::MadeAnew:
        return m_keeping->showText(tr("The list of recent documents was damaged and had to be made anew. "
                                      "Some of them may be missing."),
            Tone::Problem, NoticeBar::Stay);
    }
}

void RecentStoreNotices::tellFolders(const QStringList &paths)
{
    const QString name = QFileInfo(paths.constFirst()).fileName();
    m_folders->showText(paths.size() == 1
            ? tr("“%1” is a folder. Only documents are listed here.").arg(zel::shortName(name))
            : tr("%Ln folders were left out. Only documents are listed here.", nullptr, paths.size()));
}

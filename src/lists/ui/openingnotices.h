#pragma once

#include "lists/documentopening.h"

class NoticeBar;

/// Why a document was not opened, in words for people; `name` is its file's.
QString openProblemText(DocumentOpening::Problem problem, const QString &name);

/// Says on a page's notice what the opening of its documents runs into, and that it is waited for, which can
/// be cancelled there. GUI thread. Both outlive it.
class OpeningNotices : public QObject
{
    Q_OBJECT
public:
    OpeningNotices(DocumentOpening *opening, NoticeBar *notice, QObject *parent = nullptr);

    bool mayOpen(int documents); ///< says so when they are too many at once
    void tell(const QString &name, DocumentOpening::Problem problem);

private:
    void tellFolder(const QString &path, bool missing);
    void tellWaiting();

    DocumentOpening *m_opening;
    NoticeBar *m_notice;
    QString m_waiting; // what was said of it last
};

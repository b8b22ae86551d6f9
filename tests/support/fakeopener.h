#pragma once

#include "kdocumentopener.h"

/// Opens nothing; notes what it is asked for, and answers when told to.
class FakeOpener : public KDocumentOpener
{
public:
    QStringList asked; ///< "path", or "program path"
    QStringList revealed;
    KProgramList programs; ///< for every document

    void open(const QString &path) override { asked << path; }
    void openWith(const QString &path, const QString &programId) override
    {
        asked << programId + QLatin1Char(' ') + path;
    }
    void reveal(const QString &path) override { revealed << path; }
    void cancel(const QString &path) override { answer(path, Outcome::Cancelled); }
    void findPrograms(const QString &path) override { Q_EMIT programsFound(path, programs); }
    void answer(const QString &path, Outcome outcome) { Q_EMIT opened(path, outcome); }
};

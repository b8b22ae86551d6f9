#pragma once

#include "kdocumentopener.h"

#include <QObject>
#include <QSet>

/// Opens local documents for one page and tells what became of it. The opener of the process serves
/// everybody; only what was asked for here is told here. GUI thread; nothing blocks.
class DocumentOpening : public QObject
{
    Q_OBJECT
public:
    enum class Problem { Missing, NotReadable, NoProgram, NoAnswer, NotOnThisDevice };
    Q_ENUM(Problem)
    static constexpr int MostAtOnce = 10; ///< more programs at once are an accident

    /// Null: the process's opener, whichever it is at each call. Not owned.
    explicit DocumentOpening(KDocumentOpener *opener = nullptr, QObject *parent = nullptr);

    /// With the desktop's program; opened() or failed() follows exactly once. An empty path is a document of
    /// another device, which is called `name`. An impatient second request for the same document does
    /// nothing.
    void open(const QString &path, const QString &name = {});
    void openWith(const QString &path, const QString &programId); ///< the same, with this program
    void reveal(const QString &path); ///< in the file manager; revealFailed() follows when that does not work
    void findPrograms(const QString &path); ///< programsFound() follows, unless it is asked again before

Q_SIGNALS:
    void opened(const QString &path);
    /// `name` is for people; an empty path: of another device.
    void failed(const QString &name, DocumentOpening::Problem problem, const QString &path);
    void revealFailed(const QString &path, bool missing);
    void programsFound(const QString &path, const KProgramList &programs);

private:
    KDocumentOpener *opener();
    bool begin(const QString &path, const QString &name);
    void fail(const QString &path, Problem problem);
    void onOpened(const QString &path, KDocumentOpener::Outcome outcome);
    void onFolderShown(const QString &path, KDocumentOpener::Outcome outcome);
    void onProgramsFound(const QString &path, const KProgramList &programs);

    KDocumentOpener *m_opener;
    QSet<QString> m_opening;   // what the opener has not answered yet
    QSet<QString> m_revealing; // likewise
    QString m_programsOf;      // asked for last, until it is answered
};

#pragma once

#include "kdocumentopener.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <chrono>

/// Opens local documents for one page and tells what became of it. The opener of the process serves
/// everybody; only what was asked for here is told here. GUI thread; nothing blocks.
class DocumentOpening : public QObject
{
    Q_OBJECT
public:
    enum class Problem { Missing, NotReadable, NoProgram, NoAnswer, NotOnThisDevice };
    Q_ENUM(Problem)
    static constexpr int MostAtOnce = 10; ///< more programs at once are an accident
    static constexpr std::chrono::milliseconds Unnoticed = std::chrono::seconds(2); ///< waiting

    /// Null: the process's opener, whichever it is at each call. Not owned.
    explicit DocumentOpening(KDocumentOpener *opener = nullptr, QObject *parent = nullptr);

    /// With the desktop's program; opened(), failed() or cancelled() follows exactly once. An empty path is a
    /// document of another device, which is called `name`. An impatient second request for the same document
    /// does nothing.
    void open(const QString &path, const QString &name = {});
    void openWith(const QString &path, const QString &programId); ///< the same, with this program
    void reveal(const QString &path); ///< in the file manager; revealFailed() follows when that does not work
    void findPrograms(const QString &path); ///< programsFound() follows, unless it is asked again before
    /// Documents that are being opened and whose place has not answered for so long that it is noticed.
    QStringList waitedFor() const { return m_waitedFor; }
    void cancelWaiting(); ///< for all of them

Q_SIGNALS:
    void opened(const QString &path);
    /// `name` is for people; an empty path: of another device.
    void failed(const QString &name, DocumentOpening::Problem problem, const QString &path);
    void cancelled(const QString &path);
    void waitedForChanged(); ///< before what the answer was
    void revealFailed(const QString &path, bool missing);
    void programsFound(const QString &path, const KProgramList &programs);

private:
    KDocumentOpener *opener();
    bool begin(const QString &path, const QString &name);
    void noticeWaiting(const QString &path, int turn);
    void fail(const QString &path, Problem problem);
    void onOpened(const QString &path, KDocumentOpener::Outcome outcome);
    void onFolderShown(const QString &path, KDocumentOpener::Outcome outcome);
    void onProgramsFound(const QString &path, const KProgramList &programs);

    KDocumentOpener *m_opener;
    QHash<QString, int> m_opening; // what the opener has not answered yet, and in which turn it was asked
    int m_turn = 0;
    QStringList m_waitedFor;
    QSet<QString> m_revealing; // likewise
    QString m_programsOf;      // asked for last, until it is answered
};

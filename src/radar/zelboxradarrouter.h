#pragma once

#include <QObject>

/// Opens the radar page for a command or notice that names a radar item. GUI thread; one per process.
class ZelBoxRadarRouter : public QObject
{
    Q_OBJECT
public:
    static ZelBoxRadarRouter *instance();

    /// Remembers the genre for a page that is built later, and emits sigSelectGenreId(), then
    /// sigFileListScrollToTop().
    void selectGenre(int genreId);
    int selectedGenre() const { return m_genre; } ///< 0 before the first selection

    void notifyBackupSource(const QString &source); ///< emits sigNotifyBackupSource()

Q_SIGNALS:
    void sigSelectGenreId(int genreId);
    void sigFileListScrollToTop();
    void sigNotifyBackupSource(const QString &source);

private:
    ZelBoxRadarRouter() = default;

    int m_genre = 0;
};

#pragma once

#include "zelplatform_export.h"

#include <QObject>
#include <QVector>

#include <memory>
#include <vector>

/// A program that can open a document.
struct KProgram
{
    QString id; ///< of its desktop entry, "org.example.Editor.desktop"
    QString name;
    QString iconName; ///< in the icon theme, or the path of a picture; may be empty
    bool isDefault = false;

    bool operator==(const KProgram &) const = default;
};
using KProgramList = QVector<KProgram>;
Q_DECLARE_METATYPE(KProgramList)

/// Opens local documents with the desktop's default program. GUI thread; nothing here blocks.
/// Tests put a fake in its place with setInstance().
class ZELPLATFORM_EXPORT KDocumentOpener : public QObject
{
    Q_OBJECT
public:
    enum class Outcome {
        Opened,
        Missing,
        NotReadable,
        NoProgram,
        NoAnswer, ///< of its file system
        Cancelled,
    };
    Q_ENUM(Outcome)

    using QObject::QObject;

    static KDocumentOpener *instance();
    static void setInstance(KDocumentOpener *opener); ///< null restores the real one; not owned

    /// Checks the file on a worker thread, then starts the first program that the desktop recommends for it,
    /// or where it knows none the desktop's own opener, whose exit code says whether it worked. `opened`
    /// follows exactly once.
    virtual void open(const QString &path);
    /// Shows the file selected in the file manager (org.freedesktop.FileManager1), else opens its folder.
    /// `folderShown` follows exactly once; when not even that is possible, with the reason.
    virtual void reveal(const QString &path);
    /// Looks on a worker thread which programs the desktop recommends for the file, the default one first.
    /// `programsFound` follows exactly once, empty when there are none.
    virtual void findPrograms(const QString &path);
    /// As open(), with the program of this id; NoProgram when it is not there or does not start.
    virtual void openWith(const QString &path, const QString &programId);

    /// The user does not want to wait any longer for what open() and openWith() were asked for: no program
    /// is started any more, and `opened` follows at once. Nothing when nobody waits for the document.
    virtual void cancel(const QString &path);

Q_SIGNALS:
    void programsFound(const QString &path, const KProgramList &programs);
    void opened(const QString &path, KDocumentOpener::Outcome outcome);
    void folderShown(const QString &path, KDocumentOpener::Outcome outcome);

private:
    struct Attempt;
    std::shared_ptr<Attempt> begin(const QString &path);
    void settle(const std::shared_ptr<Attempt> &attempt, Outcome outcome);

    std::vector<std::shared_ptr<Attempt>> m_attempts; // what is to be answered
};

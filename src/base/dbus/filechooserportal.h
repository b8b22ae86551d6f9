#pragma once

#include "base/filequestion.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

class QDBusMessage;

namespace zel {

/// The desktop's file chooser (org.freedesktop.portal.FileChooser), a window of another process, so that no
/// file system holds up ours. One question. GUI thread; nothing here waits. Goes with the window on the
/// screen, too.
class FileChooserPortal final : public QObject
{
    Q_OBJECT
public:
    explicit FileChooserPortal(QObject *parent = nullptr);
    ~FileChooserPortal() override;

    /// `window` is what the question belongs to, as portals name windows; empty: nothing. Ends with one of
    /// the signals, on a later turn of the loop.
    void ask(const FileQuestion &question, const QString &window);

Q_SIGNALS:
    void answered(const QStringList &paths); ///< none: the person has cancelled
    void unavailable(); ///< there is no such portal, it cannot do this, does not answer, or went

private Q_SLOTS:
    void onResponse(uint code, const QVariantMap &results);

private:
    void askForVersion();
    void openChooser();
    void follow(const QString &request);
    QVariantMap options() const;
    template <class Answer> void call(const QDBusMessage &message, Answer answer);

    FileQuestion m_question;
    QString m_window;
    QString m_token;
    QString m_request; ///< object path of the window that may be open; empty: none
    bool m_isOver = false;
    QDBusConnection m_bus{QString()};
};

} // namespace zel

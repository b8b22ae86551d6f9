#pragma once

#include "recentfile/recentfilelogic.h"

#include <QWidget>

class RecentPicker;

/// The quick field for "mainbox" and "miniwidget" starts: type, choose, Enter. GUI thread.
/// Hides when it loses the focus, when a document was opened, and on Escape.
class ZelBoxMiniWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxMiniWidget(QWidget *parent = nullptr, const KRecentFileLogic::Services &services = {});

    void setStartMode(const QString &mode) { m_startMode = mode; } ///< "mainbox" or "miniwidget"
    QString startMode() const { return m_startMode; }

    void centerOn(const QRect &geometry); ///< moves its centre there; does not show it
    void clearPendingHide() { m_pendingHide = false; }
    void showWithFocus(); ///< shown if hidden, activated, focus in the field

Q_SIGNALS:
    void sigMiniWindowAboutToHide();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_INVOKABLE void hideIfPending();
    void moveToUsersScreen();

    RecentPicker *m_picker;
    QString m_startMode;
    bool m_loaded = false;
    bool m_isPlaced = false;    // by whoever asked for it
    bool m_pendingHide = false; // lost the focus; hides on the next turn unless asked to stay
};

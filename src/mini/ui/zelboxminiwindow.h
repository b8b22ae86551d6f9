#pragma once

#include "mini/minidock.h"
#include "recentfile/recentfilelogic.h"

#include <QWidget>
#include <memory>

class MiniPanel;
class MiniSurface;
class MiniTuck;
class QScreen;

/// The small floating window: recent documents and a search field over them. GUI thread. Stays above other
/// windows. Dropped near the left, right or top edge of a screen it docks there, and slides out of sight, but
/// for a thin strip, while neither pointer nor keyboard is in it, unless it is pinned. Its place is kept for
/// each screen. Where the desktop does not let windows place themselves, it is an ordinary small window.
class ZelBoxMiniWindow : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxMiniWindow(QWidget *parent = nullptr, const KRecentFileLogic::Services &services = {});
    ~ZelBoxMiniWindow() override;

    void showToFront(); ///< slides out when it is out of sight
    void setVisible(bool visible) override;

    zel::mini::Edge edge() const { return m_place.edge; } ///< that it is docked at
    bool isTuckedAway() const;                            ///< only the strip is seen
    bool isPinned() const { return m_pinned; }
    void setPinned(bool pinned);       ///< and remembers it
    void dockAt(zel::mini::Edge edge); ///< of the screen it is on, and remembers it; None: free again

Q_SIGNALS:
    void sigMiniWindowFirstShow();
    void mainWindowRequested();

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override; // Escape empties the field, then hides; Alt+arrows dock
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void connectPanel();
    void followScreens();
    void followScreen(QScreen *screen);
    void onScreensChanged();
    void restorePlace();
    void keepPlace(const zel::mini::Place &place);
    void beginDrag(const QPoint &globalPos);
    void drag(const QPoint &globalPos);
    void endDrag();
    void updateTuck();
    void applyPart();
    QRect outRect() const;

    MiniPanel *m_panel;
    QWidget *m_strip;
    MiniTuck *m_tuck;
    std::unique_ptr<MiniSurface> m_surface;
    zel::mini::Screens m_screens;
    int m_screen = -1; // in m_screens
    zel::mini::Place m_place;
    QPoint m_grabbed; // from the window to the pointer
    QRect m_dragged;  // where the window is dragged to
    bool m_pinned = false;
    bool m_firstShown = false;
};

#pragma once

#include <QWidget>

class RecentPicker;

/// The small floating window: recent documents and a search field over them. GUI thread. Stays above other
/// windows.
class ZelBoxMiniWindow : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxMiniWindow(QWidget *parent = nullptr);

    void showToFront();

Q_SIGNALS:
    void sigMiniWindowFirstShow();
    void mainWindowRequested();

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override; // Escape hides

private:
    RecentPicker *m_picker;
    bool m_firstShown = false;
};

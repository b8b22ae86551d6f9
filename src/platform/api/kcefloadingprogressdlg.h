#pragma once

#include "kxcefpluginstate.h"
#include "zelplatform_export.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

/// Modal dialog that waits for the web engine: accepted once it is ready, rejected by Cancel, Escape or
/// closing. A failed engine is said in the dialog, which then offers only to go on without (accepted) or to
/// cancel.
class ZELPLATFORM_EXPORT KCefLoadingProgressDlg : public QDialog
{
    Q_OBJECT
public:
    explicit KCefLoadingProgressDlg(QWidget *parent = nullptr);

private:
    void onStateChanged(KxCefEngine::State state);

    QLabel *m_text;
    QProgressBar *m_bar;
    QPushButton *m_goOn;
};

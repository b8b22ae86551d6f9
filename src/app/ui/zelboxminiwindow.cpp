#include "app/ui/zelboxminiwindow.h"

#include "app/ui/recentpicker.h"
#include "klitestyle.h"

#include <QIcon>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

ZelBoxMiniWindow::ZelBoxMiniWindow(QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint), m_picker(new RecentPicker(this))
{
    setWindowTitle(tr("Mini window"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/zelbox.ico")));
    setObjectName(QStringLiteral("ZelBoxMiniWindow"));
    resize(KLiteStyle::dpiScaledSize({320, 440}));
    auto *open = new QPushButton(tr("Open ZEL Box"), this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({12, 12, 12, 12}));
    layout->addWidget(m_picker, 1);
    layout->addWidget(open);
    connect(open, &QPushButton::clicked, this, &ZelBoxMiniWindow::mainWindowRequested);
}

void ZelBoxMiniWindow::showToFront()
{
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    m_picker->focusInput();
}

void ZelBoxMiniWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_firstShown)
        return;
    m_firstShown = true;
    m_picker->startLoading();
    Q_EMIT sigMiniWindowFirstShow();
}

void ZelBoxMiniWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        QWidget::keyPressEvent(event);
}

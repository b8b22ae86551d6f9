#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;
class QStackedLayout;

/// How much cloud space is used, and the link that asks for more.
class ZelBoxLoginSpaceWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxLoginSpaceWidget(QWidget *parent = nullptr);

    void setSpace(qint64 usedBytes, qint64 totalBytes); ///< a total of 0 means "no limit"

public Q_SLOTS:
    void onDilatationLinkClicked();

Q_SIGNALS:
    void dilatationRequested();

private:
    QLabel *m_text;
    QProgressBar *m_bar;
};

/// Shown while nobody is signed in: documents are on this computer only; a link to sign in.
class ZelBoxUnLoginSpaceWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxUnLoginSpaceWidget(QWidget *parent = nullptr);

public Q_SLOTS:
    void onLoginLinkClicked();

Q_SIGNALS:
    void loginRequested();
};

/// The strip under the navigation: cloud space when signed in, else the login link. GUI thread.
class ZelBoxSpaceBar : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxSpaceBar(QWidget *parent = nullptr);

    void setLoggedIn(bool loggedIn);
    ZelBoxLoginSpaceWidget *loginWidget(); ///< made on first use

Q_SIGNALS:
    void loginRequested();
    void dilatationRequested();

private:
    QStackedLayout *m_layout;
    ZelBoxLoginSpaceWidget *m_login = nullptr;
};

/// The same information as an entry of the main menu.
class ZelBoxCloudSpaceActionWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxCloudSpaceActionWidget(QWidget *parent = nullptr);

    void setText(const QString &text);

private:
    QLabel *m_text;
};

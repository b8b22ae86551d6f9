#pragma once

#include <QWidget>

class CloudSpace;
class QLabel;
class QProgressBar;
class QPushButton;
class QStackedLayout;

/// Whose cloud space it is, how much of it is used, and the link that asks for more, which the space of this
/// computer has not got.
class ZelBoxLoginSpaceWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxLoginSpaceWidget(QWidget *parent = nullptr);

    void setAccount(const CloudSpace &space);

public Q_SLOTS:
    void onDilatationLinkClicked();

Q_SIGNALS:
    void dilatationRequested();

private:
    QLabel *m_name;
    QLabel *m_text;
    QProgressBar *m_bar;
    QPushButton *m_more;
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

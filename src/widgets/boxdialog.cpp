#include "widgets/boxdialog.h"

#include "klitestyle.h"
#include "klook.h"
#include "widgets/balancedlabel.h"
#include "widgets/modalguard.h"
#include "widgets/nametext.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace look = zel::look;

BoxDialog::BoxDialog(const QString &title, const QString &heading, QWidget *parent)
    : QDialog(parent), m_body(new QVBoxLayout)
{
    setWindowTitle(title);
    setWindowIcon(QIcon(QStringLiteral(":/icons/zelbox.ico")));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setMinimumWidth(KLiteStyle::dpiScaled(look::DialogWidth));
    new ModalGuard(this);
    auto *headingLabel = new BalancedLabel(heading, this); // plain text: it may hold the name of a file
    headingLabel->setFont(look::font(look::Type::Title, font()));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(
        KLiteStyle::dpiScaledMargins({look::SpaceXL, look::SpaceL, look::SpaceXL, look::SpaceL}));
    layout->setSpacing(KLiteStyle::dpiScaled(look::SpaceM));
    layout->addWidget(headingLabel);
    m_body->setSpacing(KLiteStyle::dpiScaled(look::SpaceS));
    layout->addLayout(m_body, 1);
    layout->addSpacing(KLiteStyle::dpiScaled(look::SpaceXS));
}

QSize BoxDialog::sizeHint() const
{
    const int width = qMax(KLiteStyle::dpiScaled(look::DialogWidth), QDialog::sizeHint().width());
    return {width,
        layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width) : QDialog::sizeHint().height()};
}

void BoxDialog::makeResizable(const QSize &size)
{
    m_isResizable = true;
    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    resize(size.boundedTo(room - QSize(0, KLiteStyle::dpiScaled(look::ControlHeight)))); // of the title bar
}

// Some window managers offer to maximise whatever can change its size.
bool BoxDialog::event(QEvent *event)
{
    const QEvent::Type type = event->type();
    const bool isDone = QDialog::event(event);
    if (type == QEvent::DeferredDelete)
        return isDone; // the dialog is gone
    if (!m_isResizable && (type == QEvent::Polish || type == QEvent::LayoutRequest))
        setFixedSize(sizeHint());
    return isDone;
}

// The box of buttons hands the focus on to its first button. The Tab key, which goes by the order of making,
// would never come to what was made between the two.
QDialogButtonBox *BoxDialog::buttons()
{
    if (!m_buttons) {
        m_buttons = new QDialogButtonBox(this);
        layout()->addWidget(m_buttons);
        connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    }
    return m_buttons;
}

QString BoxDialog::headingName(const QString &fileName)
{
    return zel::shortName(fileName);
}

QLabel *BoxDialog::addText(const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText); // may hold names and places
    label->setWordWrap(true);
    m_body->addWidget(label);
    return label;
}

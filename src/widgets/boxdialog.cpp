#include "widgets/boxdialog.h"

#include "klitestyle.h"
#include "klook.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace look = zel::look;

BoxDialog::BoxDialog(const QString &title, const QString &heading, QWidget *parent)
    : QDialog(parent), m_body(new QVBoxLayout)
{
    setWindowTitle(title);
    setWindowIcon(QIcon(QStringLiteral(":/icons/zelbox.ico")));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *headingLabel = new QLabel(heading, this);
    headingLabel->setFont(look::font(look::Type::Title, font()));
    headingLabel->setTextFormat(Qt::PlainText); // may hold the name of a file
    headingLabel->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(
        KLiteStyle::dpiScaledMargins({look::SpaceXL, look::SpaceL, look::SpaceXL, look::SpaceL}));
    layout->setSpacing(KLiteStyle::dpiScaled(look::SpaceM));
    layout->addWidget(headingLabel);
    m_body->setSpacing(KLiteStyle::dpiScaled(look::SpaceS));
    layout->addLayout(m_body, 1);
    layout->addSpacing(KLiteStyle::dpiScaled(look::SpaceXS));
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
    constexpr int Most = 48;
    constexpr int Tail = 20; // with the suffix
    QString name = fileName;
    if (name.size() > Most)
        name = name.left(Most - Tail - 1).trimmed() + QChar(0x2026) + name.right(Tail).trimmed();
    // Line breaks and marks of direction could make it read as something else.
    for (QChar &c : name) {
        if (c.category() == QChar::Other_Control || c.category() == QChar::Other_Format)
            c = QLatin1Char(' ');
    }
    return name;
}

QLabel *BoxDialog::addText(const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText); // may hold names and places
    label->setWordWrap(true);
    label->setMinimumWidth(KLiteStyle::dpiScaled(340));
    m_body->addWidget(label);
    return label;
}

#include "widgets/searchfield.h"

#include "klitestyle.h"
#include "widgets/svgicon.h"

#include <QAction>
#include <QKeyEvent>

static constexpr int Width = 240;

SearchField::SearchField(const QString &placeholder, QWidget *parent)
    : QLineEdit(parent), m_clear(new QAction(tr("Clear search"), this))
{
    setPrompt(placeholder);
    const auto secondary = KSkin::Color::TextSecondary;
    // No shortcut: it only shows what the field is for. Its name is for those who have it read out.
    addAction(zel::tintedIcon(QStringLiteral(":/icons_svg/search.svg"), secondary), LeadingPosition)
        ->setText(tr("Search"));
    m_clear->setIcon(zel::tintedIcon(QStringLiteral(":/icons_svg/clear.svg"), secondary));
    addAction(m_clear, TrailingPosition);
    m_clear->setVisible(false); // only now: the field's button follows changes alone
    connect(m_clear, &QAction::triggered, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, m_clear,
        [this](const QString &text) { m_clear->setVisible(!text.isEmpty()); });
}

void SearchField::setPrompt(const QString &placeholder)
{
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
}

QSize SearchField::sizeHint() const
{
    return {KLiteStyle::dpiScaled(Width), QLineEdit::sizeHint().height()};
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() != Qt::NoModifier && event->modifiers() != Qt::KeypadModifier)
        return QLineEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else if (event->key() == Qt::Key_Down)
        Q_EMIT leaveDownRequested();
    else
        QLineEdit::keyPressEvent(event);
}

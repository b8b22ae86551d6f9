#include "mainwindow/ui/searchbox.h"

#include "klitestyle.h"

#include <QKeyEvent>

SearchBox::SearchBox(QWidget *parent) : SearchField(tr("Search"), parent)
{
    setObjectName(QStringLiteral("searchBox"));
    setMaximumWidth(KLiteStyle::dpiScaled(420));
    setMinimumWidth(KLiteStyle::dpiScaled(120));
}

void SearchBox::setPage(const QString &title)
{
    setPrompt(title.isEmpty() ? tr("Search") : tr("Search in %1").arg(title));
}

void SearchBox::begin(const QString &typed)
{
    setFocus(Qt::ShortcutFocusReason);
    if (typed.isEmpty()) {
        selectAll();
        return;
    }
    end(false);
    insert(typed);
}

void SearchBox::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_PageDown:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT ended(true);
        return;
    case Qt::Key_Escape:
        if (text().isEmpty()) {
            Q_EMIT ended(false);
            return;
        }
        break;
    default:
        break;
    }
    SearchField::keyPressEvent(event);
}

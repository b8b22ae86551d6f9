#pragma once

#include "widgets/searchfield.h"

/// The search field in the main window's header. GUI thread. It narrows the chosen page while one types:
/// Down, Page Down and Enter go on into the page, and so does Tab from words. Escape empties the field; it
/// also leaves it when it was empty, or when the typing began in the page. The page's keys work here, too,
/// as far as they are not for the text.
class SearchBox : public SearchField
{
    Q_OBJECT
public:
    explicit SearchBox(QWidget *parent = nullptr);

    /// What it searches: the title stands in the empty field, empty: nothing is searched.
    void setPage(const QString &title, const QWidget *page);
    /// Gives it the focus; `typed` is added to what stands in it, without one that is selected.
    void begin(const QString &typed = {});

Q_SIGNALS:
    void ended(bool toFirstRow); ///< the keyboard wants into the page: onto its first row, or where it was

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    bool undoesInPage(const QKeyEvent &event) const;

    QList<QAction *> m_pageActions;
    bool m_typedInPage = false; ///< what the search began with
};

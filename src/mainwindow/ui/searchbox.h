#pragma once

#include "widgets/searchfield.h"

/// The search field in the main window's header. GUI thread. It narrows the chosen page while one types:
/// Down, Page Down and Enter go on into the page, Escape empties the field, and a second one leaves it.
class SearchBox : public SearchField
{
    Q_OBJECT
public:
    explicit SearchBox(QWidget *parent = nullptr);

    void setPage(
        const QString &title); ///< the page it searches, for what stands in the empty field; empty: none
    /// Gives it the focus; `typed` is added to what stands in it, without one that is selected.
    void begin(const QString &typed = {});

Q_SIGNALS:
    void ended(bool toFirstRow); ///< the keyboard wants into the page: onto its first row, or where it was

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

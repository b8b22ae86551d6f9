#pragma once

#include <QWidget>

class IconButton;
class QHBoxLayout;
class QLabel;
class QMenu;

/// Header strip of a list page: what it is called, how many rows it lists, and at its end buttons with menus;
/// in the column of the page. GUI thread.
class ListHeader : public QWidget
{
    Q_OBJECT
public:
    explicit ListHeader(const QString &title, QWidget *parent = nullptr);

    /// Negative shows none. `name` says for assistive programs what is counted: "Number of files: %1".
    void setCount(int count, const QString &name);
    void setCountText(const QString &text); ///< in place of the number, until the next one
    /// After those that are there, at the end of the strip; `menu` is not owned. `icon` as in
    /// zel::tintedIcon(), `name` is the tool tip.
    IconButton *addMenuButton(const QString &icon, const QString &name, QMenu *menu);

protected:
    void addText(QWidget *text); ///< after the count, on the same base line

private:
    QLabel *m_count;
    QHBoxLayout *m_texts;
    QHBoxLayout *m_buttons;
};

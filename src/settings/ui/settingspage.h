#pragma once

#include <QWidget>

class NoticeBar;
class QLabel;
class QScrollArea;
class QVBoxLayout;
class SettingsCard;

/// One page of the settings: a heading, and cards that scroll when there is no room for them; notices float
/// over them. GUI thread.
class SettingsPage : public QWidget
{
    Q_OBJECT
public:
    explicit SettingsPage(const QString &title, QWidget *parent = nullptr);

    /// The control that a command may name; null: the page has none of this name.
    virtual QWidget *control(const QString &name) const;
    /// Gives a control() the focus with a ring, and brings it into view.
    void lead(QWidget *control);
    /// Reads anew what others may have changed: the page was chosen, or the dialog became active.
    virtual void refresh() { }

protected:
    /// A group with a heading, and a sentence under it if wanted.
    SettingsCard *addCard(const QString &heading, const QString &text = {});
    QLabel *addText(const QString &text); ///< a paragraph between the cards
    void addWidget(QWidget *widget);      ///< anything else, as wide as it likes
    void addFiller(QWidget *widget);      ///< takes what room is left
    NoticeBar *notice() const { return m_notice; }
    void mousePressEvent(QMouseEvent *event) override;

private:
    void followScrollBar();
    void addNotice();

    QScrollArea *m_scroller;
    QWidget *m_content;
    QVBoxLayout *m_body;
    QVBoxLayout *m_cards; ///< in the body, above what room is left
    NoticeBar *m_notice = nullptr;
};

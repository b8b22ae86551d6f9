#pragma once

#include <QFrame>

class QBoxLayout;
class QLabel;
class QVBoxLayout;

/// A row of a card: what it is about at the left, under it a sentence, the control at the right, or below
/// where there is no room beside the texts. GUI thread. A click anywhere on the row of a switch works the
/// switch.
class SettingsRow final : public QWidget
{
    Q_OBJECT
public:
    /// `control` may be null; it becomes a child, and takes title and explanation as its accessible name and
    /// description.
    SettingsRow(
        const QString &title, const QString &explanation, QWidget *control, QWidget *parent = nullptr);

    void setTitle(const QString &title);
    void setExplanation(const QString &text); ///< empty: none
    void setRowEnabled(bool enabled);         ///< greys the texts, too

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    bool isSwitch() const;

    QBoxLayout *m_layout;
    QLabel *m_title;
    QLabel *m_explanation;
    QWidget *m_control;
};

/// A group of settings on a page: rows with hairlines between them inside one outline. GUI thread.
class SettingsCard final : public QFrame
{
    Q_OBJECT
public:
    explicit SettingsCard(QWidget *parent = nullptr);

    SettingsRow *addRow(const QString &title, const QString &explanation, QWidget *control = nullptr);
    void addRow(QWidget *row); ///< of any other shape; becomes a child

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVBoxLayout *m_rows;
};

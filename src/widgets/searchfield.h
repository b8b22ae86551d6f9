#pragma once

#include <QLineEdit>

/// A line edit for looking for something: a search glyph in front, a button that empties it once there is
/// text. Escape empties it, too; in an empty field Escape goes on to the parent. GUI thread.
class SearchField : public QLineEdit
{
    Q_OBJECT
public:
    /// `placeholder` is also the accessible name.
    explicit SearchField(const QString &placeholder, QWidget *parent = nullptr);

    void setPrompt(const QString &placeholder); ///< another placeholder and accessible name
    QSize sizeHint() const override;

Q_SIGNALS:
    void leaveDownRequested(); ///< the Down key: the keyboard wants to go on to what was found

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QAction *m_clear;
};

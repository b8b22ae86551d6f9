#pragma once

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QVBoxLayout;

/// The frame of all dialogs of the box: heading, body, and the buttons in the order of the platform; at least
/// look::DialogWidth wide, as large as its texts need, and its window can be closed only. GUI thread.
class BoxDialog : public QDialog
{
    Q_OBJECT
public:
    BoxDialog(const QString &title, const QString &heading, QWidget *parent = nullptr);

    /// The name of a file as a heading can carry it: the middle of a long one is left out.
    static QString headingName(const QString &fileName);

    QSize sizeHint() const override; ///< as tall as the texts are at this width

protected:
    bool event(QEvent *event) override;
    QVBoxLayout *body() const { return m_body; }
    QDialogButtonBox *buttons();           ///< made when first asked for: after the body, see there
    QLabel *addText(const QString &text);  ///< a wrapped paragraph in the body
    void makeResizable(const QSize &size); ///< what shows a list gets this size to begin with

private:
    QVBoxLayout *m_body;
    QDialogButtonBox *m_buttons = nullptr;
    bool m_isResizable = false;
};

#pragma once

#include <QLabel>

/// A heading of plain text whose lines are about as long as one another: no more of them than fit, but no
/// word alone on the last one. GUI thread.
class BalancedLabel final : public QLabel
{
public:
    explicit BalancedLabel(const QString &text, QWidget *parent = nullptr);

    /// The least width at which `text` takes no more lines than at `width`.
    static int balancedWidth(const QString &text, const QFontMetrics &metrics, int width);

    int heightForWidth(int width) const override;
    QSize minimumSizeHint() const override; ///< the longest word fits

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const QString m_shown; ///< the text, with blanks that do not break where a line must not end
};

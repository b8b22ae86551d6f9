#pragma once

#include <QScrollArea>

class QButtonGroup;
class QHBoxLayout;

/// Chips that narrow a list to one sort of its rows; the first stands for all. One is always chosen. GUI
/// thread. Where they have no room, they scroll sideways.
class FilterBar : public QScrollArea
{
    Q_OBJECT
public:
    /// `name` says for assistive programs what is chosen here.
    explicit FilterBar(const QString &name, QWidget *parent = nullptr);

    void addChip(int id, const QString &text); ///< the page's number, not negative; the first is chosen
    int chosen() const;
    void chooseFirst(); ///< tells chipChosen() when another one was chosen

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void chipChosen(int id);

protected:
    void wheelEvent(QWheelEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QButtonGroup *m_group;
    QHBoxLayout *m_row;
};

#pragma once

#include <QWidget>

class QLabel;

/// Header strip of the Recent page: its name and, quietly, how many files it lists. GUI thread.
class ZelBoxRecentFileTitleWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileTitleWidget(QWidget *parent = nullptr);

    void setCount(int count); ///< 0 shows none

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateTexts();

    QLabel *m_title;
    QLabel *m_countLabel;
    int m_count = 0;
};

#pragma once

#include <QWidget>

class QLabel;

/// The line below the list: how many documents there are or are selected, and how full the drive is. GUI
/// thread.
class CloudStatusLine : public QWidget
{
    Q_OBJECT
public:
    explicit CloudStatusLine(QWidget *parent = nullptr);

    void setCounts(int shown, int selected, qint64 selectedBytes); ///< bytes below 0: not known
    void setSpace(qint64 used, qint64 total); ///< bytes; below 0: not known; total 0: no limit

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void setFonts();

    QLabel *m_counts;
    QLabel *m_space;
};

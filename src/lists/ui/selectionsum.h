#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

class SectionListView;

/// How many rows of a list are selected, and how large they are together. GUI thread; child of the view.
class SelectionSum : public QObject
{
    Q_OBJECT
public:
    /// `sizeOf` a row, in bytes; below 0: not known, which adds nothing.
    SelectionSum(SectionListView *view, std::function<qint64(int row)> sizeOf);

    /// On a later turn of the loop; by itself when the selection changes. Many changes of a very large
    /// selection are counted together.
    void countSoon();

    int selected() const { return m_selected; } ///< as counted last
    qint64 bytes() const { return m_bytes; }

Q_SIGNALS:
    void counted();

private:
    void count();

    SectionListView *m_view;
    const std::function<qint64(int row)> m_sizeOf;
    QTimer m_soon;
    int m_selected = 0;
    qint64 m_bytes = 0;
};

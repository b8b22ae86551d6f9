#pragma once

#include <QModelIndex>
#include <functional>
#include <optional>

class QAbstractItemView;
class QLineEdit;
class QWidget;

/// The name that is typed in a list's row, the current one. GUI thread; outlived by its view.
class ListRename
{
public:
    /// `close` takes an editor away without giving its name.
    ListRename(QAbstractItemView *view, std::function<void(QWidget *editor)> close)
        : m_view(view), m_close(std::move(close))
    {
    }

    void begin(const QModelIndex &index); ///< of a row that can be edited; not while another one is
    void goOn(const QString &typed);      ///< begins with the current row, as if this had been typed
    void end();                           ///< without the name that is typed
    bool isOpen() const;
    std::optional<QString> typed() const;

private:
    QLineEdit *editor() const; ///< null: there is none

    QAbstractItemView *m_view;
    std::function<void(QWidget *editor)> m_close;
};

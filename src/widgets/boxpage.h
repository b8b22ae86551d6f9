#pragma once

#include <QString>

class QWidget;

/// What a page can ask of the window around it. GUI thread.
class BoxPageHost
{
public:
    /// Gives the window's search field the focus; `typed` is added to what stands in it.
    virtual void beginFinding(const QString &typed) = 0;
    /// Empties the search field, and with it the page's filter.
    virtual void clearFilter() = 0;

protected:
    ~BoxPageHost() = default;
};

/// What the main window asks of a page, whatever it shows. GUI thread. The page's widget owns the object that
/// implements this (most often it is the same object).
class BoxPage
{
public:
    /// Narrows what the page lists to names that contain these words; empty: everything again.
    virtual void setFilterText(const QString &text) = 0;
    /// Where the keyboard goes when the page is chosen; null: to the page's widget.
    virtual QWidget *focusTarget() = 0;
    /// The keyboard leaves the search field: into the list, onto its first row or where it was.
    virtual void findEnded(bool toFirstRow) = 0;
    virtual void setHost(BoxPageHost *) { } ///< told once, before the first show; outlives the page
    virtual void pageShown() { }            ///< it has become the chosen page
    virtual void pageHidden() { }           ///< another page was chosen
    /// The box goes into the background: what can be made again cheaply is given back.
    virtual void releaseMemory() { }

protected:
    ~BoxPage() = default;
};

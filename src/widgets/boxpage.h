#pragma once

#include <QObject>
#include <QString>
#include <memory>

class QWidget;

/// What a page can tell and ask the window around it. GUI thread. Each page has a host of its own, which is
/// there before the page and after it.
class BoxPageHost
{
public:
    /// Gives the window's search field the focus; `typed` is added to what stands in it. Nothing while
    /// another page is the chosen one.
    virtual void beginFinding(const QString &typed) = 0;
    /// Empties the page's search field, and with it its filter; another page's stay.
    virtual void clearFilter() = 0;
    /// How much of the page the user has not seen: a number beside its name, else a red dot when
    /// `redPointCount` is not 0, else nothing. Told at each change, from the start on none.
    virtual void setUnread(int /*count*/, int /*redPointCount*/) { }
    /// Whether something is under way on the page that would end half done with the box. Told at each change,
    /// from the start on false.
    virtual void setBusy(bool /*busy*/) { }
    /// Opens a page of the settings ("cloud"); empty: where the user left them.
    virtual void openSettings(const QString & /*settingsPage*/) { }

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
    virtual void setHost(BoxPageHost *) { } ///< told once, before everything else
    /// The box has come up, on the screen or hidden: what is to be listed or told from the start is loaded
    /// now. Told once; a page that is made later hears it when it is made.
    virtual void windowFirstShown() { }
    virtual void windowReady() { } ///< the window stands on the screen; told once, after windowFirstShown()
    virtual void pageShown() { }   ///< it has become the chosen page
    virtual void pageHidden() { }  ///< another page was chosen
    /// Opens what others know by name on this page (`base/sourcekeys.h`); false: it has nothing of this name.
    virtual bool openPlace(const QString & /*place*/) { return false; }
    /// How much of the user's cloud space is taken, bytes; `used` -1: not known, `total` 0: no limit. Told
    /// when the page is made and at each change.
    virtual void setCloudSpace(qint64 /*used*/, qint64 /*total*/) { }
    /// The window is made anew, and another page takes the place of this one, which goes next: what is to go
    /// on there, for zel::PageInfo::make; null: nothing.
    virtual std::unique_ptr<QObject> handOver() { return nullptr; }
    /// The box goes into the background: what can be made again cheaply is given back.
    virtual void releaseMemory() { }

protected:
    ~BoxPage() = default;
};

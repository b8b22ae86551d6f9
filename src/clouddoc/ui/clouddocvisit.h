#pragma once

#include "clouddoc/clouddoclogic.h"

#include <optional>

/// What goes on when the window of the cloud page is made anew, from the old page to the new one: the folder
/// with its rows and history, what is under way, and what the user was at. GUI thread.
class CloudDocVisit final : public QObject
{
    Q_OBJECT
public:
    explicit CloudDocVisit(CloudDocLogic *owned) : logic(owned) { owned->setParent(this); }

    CloudDocLogic *logic; ///< a child, until a page adopts it
    QStringList selected;
    QString current; ///< empty: none
    std::optional<CloudUndo> undo;
    std::optional<QString> newName; ///< that was typed for the current row
    bool showsTransfers = false;
};

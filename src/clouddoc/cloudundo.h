#pragma once

#include "clouddoc/clouddocument.h"

#include <QMetaType>
#include <QStringList>

/// What the user has done last in the drive and how it is taken back. A value.
struct CloudUndo
{
    CloudOperation operation = CloudOperation::Trash; ///< Trash, Move, Rename or CreateFolder
    int count = 0;                                    ///< of items
    QStringList ids;    ///< of the items; of Trash in the recycle bin, empty when nothing brings them back
    QString firstName;  ///< of the first of them, before
    QString newName;    ///< of Rename
    QString fromFolder; ///< of Move and Trash: where they were
    QString toFolder;   ///< of Move: where they are now

    bool operator==(const CloudUndo &) const = default;
};
Q_DECLARE_METATYPE(CloudUndo)

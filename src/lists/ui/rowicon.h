#pragma once

#include <QString>

class QPainter;
class QRect;

namespace zel {

/// The thumbnail of `picture` (a local file; empty: none), else the icon of the type that `fileName`
/// promises, in the middle of `rect`. A `fileName` that ends in "/" is a folder. GUI thread; asks for the
/// thumbnail.
void paintFileIcon(
    QPainter *painter, const QRect &rect, const QString &fileName, const QString &picture, bool disabled);

} // namespace zel

#pragma once

#include <QObject>

/// Chooses the icon set for the current skin. GUI thread; child of the core.
class ZelBoxIconThemeMgr : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Folder of the file-icon set of the skin; empty when the skin brings none and the built-in icons serve.
    QString fileIconSet() const;
};

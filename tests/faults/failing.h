#pragma once

#include "faultcontrol.h"

/// Of the layer in this process; null without one.
inline FaultControl *faults()
{
    static FaultControl *const made = openFaultControl(qgetenv("ZEL_FAULTS").constData());
    return made;
}

/// Lets the n-th file call below a folder fail while it lives: each second one for want of room.
class Failing
{
public:
    Failing(const QString &folder, long nth)
    {
        faults()->calls = 0;
        faults()->failAt = nth;
        faults()->error = nth % 2 ? EIO : ENOSPC;
        qstrncpy(faults()->folder, QFile::encodeName(folder).constData(), sizeof(faults()->folder));
    }
    ~Failing() { faults()->folder[0] = '\0'; }
    bool happened() const { return faults()->calls >= faults()->failAt; }
};

/// Says where the n-th call led to something else.
inline bool isSame(int nth, const char *what, const QString &is, const QString &wanted)
{
    if (is != wanted)
        qWarning().noquote() << "call" << nth << what << is << "instead of" << wanted;
    return is == wanted;
}

/// A state without ids, as those of new items are any.
inline QString shapeOf(QString state)
{
    return state.remove(QRegularExpression("#\\S+"_s));
}

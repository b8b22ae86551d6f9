#pragma once

#include "zelplatform_export.h"

#include <QObject>

/// The embedded web engine as the runtime knows it, one for the process. GUI thread.
/// Ready while no page needs an engine.
class ZELPLATFORM_EXPORT KxCefEngine : public QObject
{
    Q_OBJECT
public:
    enum State { Missing = 0, Ready = 1, Loading = 2, Failed = 3 };
    Q_ENUM(State)

    static KxCefEngine *instance();

    State state() const { return m_state; }
    void setState(State state); ///< by whatever supplies the engine; emits stateChanged() on a change
    int progress() const { return m_progress; } ///< 0 to 100 while Loading
    void setProgress(int percent);

Q_SIGNALS:
    void stateChanged(KxCefEngine::State state);
    void progressChanged(int percent);

private:
    State m_state = Ready;
    int m_progress = 0;
};

/// One look at the engine's state.
class ZELPLATFORM_EXPORT KxCefPluginState
{
public:
    /// `owner`, `kind` and `reload` are the suite's; this runtime has one engine and needs none of them.
    KxCefPluginState(QObject *owner, int kind, bool reload);
    int state() const; ///< 1 is ready; see KxCefEngine::State
};

#include "kxcefpluginstate.h"

KxCefEngine *KxCefEngine::instance()
{
    static KxCefEngine engine;
    return &engine;
}

void KxCefEngine::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    Q_EMIT stateChanged(state);
}

void KxCefEngine::setProgress(int percent)
{
    percent = qBound(0, percent, 100);
    if (m_progress == percent)
        return;
    m_progress = percent;
    Q_EMIT progressChanged(percent);
}

KxCefPluginState::KxCefPluginState(QObject * /*owner*/, int /*kind*/, bool /*reload*/) { }

int KxCefPluginState::state() const
{
    return KxCefEngine::instance()->state();
}

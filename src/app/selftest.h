#pragma once

#include <QObject>
#include <QStringList>

class ZelBoxCore;

/// The smoke test of an installed copy (`zelbox --self-test`): opens every page of the real main window,
/// waits until the recent files are there, and ends the box. GUI thread; child of the core. With
/// ZELBOX_SELF_TEST_RESULT the outcome goes into that file as "ok" or "failed: <why>".
class SelfTest : public QObject
{
    Q_OBJECT
public:
    /// Does nothing unless ZELBOX_SELF_TEST is 1.
    static void startIfAsked(ZelBoxCore *core);

private:
    explicit SelfTest(ZelBoxCore *core);

    void visitPages();
    void finish(const QString &problem);

    ZelBoxCore *m_core;
    bool m_pagesVisited = false;
    bool m_listLoaded = false;
    bool m_finished = false;
};

#pragma once

#include "kdcinfoc.h"
#include "ksettings.h"
#include "recentfile/fakes.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsettings.h"
#include "recentfile/ui/recentfile.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfilewidget.h"
#include "support/fakecloud.h"
#include "widgets/noticebar.h"

namespace recenttest {

/// The Recent page in an active window, over a store, a desktop and a cloud service that are fakes.
class PageFixture
{
protected:
    using State = ZelBoxRecentFileWidgetBase::State;

    void clear()
    {
        m_recent.reset();
        for (const char *key :
            {"recentFileLoadingOuttimeTime", "RecentRecordType", "zelbox_remind_msg", "zelbox_ignore_msg"})
            set(QString::fromLatin1(key), {});
        m_events = std::make_unique<KRecentFileEvents>();
        m_proxy = std::make_unique<FakeCloud>();
        m_store = {};
        m_opener.asked.clear();
        m_opener.revealed.clear();
        m_trash.asked.clear();
        m_log.clear();
        m_store.log = &m_log;
    }

    void set(const QString &key, const QVariant &value)
    {
        KSettings settings;
        settings.beginGroup("zelbox"_s);
        if (value.isValid())
            settings.setValue(key, value);
        else
            settings.remove(key);
        zel::recent::resetSettingsCache();
    }

    /// Records "0", "1" … of a second each, newest first; the page waits for its first load.
    void make(int rows, bool ready = true)
    {
        RecordInfoList records;
        for (int i = 0; i < rows; ++i)
            records << record(QString::number(i), QDateTime::currentMSecsSinceEpoch() - i * 1000);
        make(records, ready);
    }
    void make(const RecordInfoList &records, bool ready)
    {
        m_store.ready = ready;
        m_store.content = records;
        m_recent = std::make_unique<ZelBoxRecentFile>(
            ZelBoxRecentFile::Services{m_proxy.get(), &m_store, m_events.get(), &m_opener, &m_trash});
        page()->resize(700, 500);
        page()->show();
        QVERIFY(QTest::qWaitForWindowActive(page()));
        QCOMPARE(page()->state(), State::Waiting);
    }

    void load(int rows)
    {
        make(rows);
        page()->onWindowFirstShown();
        m_log.clear();
        view()->setFocus();
    }

    QPushButton *button(const QString &text, QWidget *in = nullptr) const
    {
        const auto buttons = (in ? in : page())->findChildren<QPushButton *>();
        const auto found = std::find_if(buttons.cbegin(), buttons.cend(),
            [&](QPushButton *b) { return b->text() == text && b->isVisible(); });
        return found == buttons.cend() ? nullptr : *found;
    }

    QString said() const ///< by the notices that show
    {
        QString text;
        for (const NoticeBar *each : page()->findChildren<NoticeBar *>())
            text += each->isVisible() ? each->text() : QString();
        return text;
    }

    QStringList events() const ///< telemetry, one line each
    {
        QFile file(qEnvironmentVariable("XDG_STATE_HOME") + "/zelbox/telemetry.jsonl"_s);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QStringList lines;
        while (!file.atEnd())
            lines << QString::fromUtf8(file.readLine()).trimmed();
        return lines;
    }

    ZelBoxRecentFileWidget *page() const { return m_recent->page(); }
    ZelBoxRecentFileListView *view() const { return page()->view(); }
    QModelIndex row(int number) const { return view()->model()->index(number, 0); }
    QPoint centreOf(int number) const { return view()->visualRect(row(number)).center(); }
    NoticeBar *notice() const { return page()->findChild<NoticeBar *>("notice"_s); }

    FakeStore m_store;
    std::unique_ptr<KRecentFileEvents> m_events;
    std::unique_ptr<FakeCloud> m_proxy;
    FakeOpener m_opener;
    FakeTrash m_trash;
    QStringList m_log;
    std::unique_ptr<ZelBoxRecentFile> m_recent;
};

} // namespace recenttest

#pragma once

#include "clouddoc/ui/clouddoclistview.h"
#include "clouddoc/ui/zelboxclouddocwidget.h"
#include "support/fakecloud.h"
#include "support/fakeopener.h"
#include "widgets/noticebar.h"

/// The page of cloud documents in an active window, over a cloud that the test answers for.
class PageFixture
{
protected:
    using State = CloudDocStates::State;

    void make()
    {
        m_page.reset();
        m_cloud = std::make_unique<FakeCloud>();
        m_opener.asked.clear();
        KDocumentOpener::setInstance(&m_opener);
        m_page = std::make_unique<ZelBoxCloudDocWidget>(m_cloud.get());
        m_page->resize(720, 500);
        m_cloud->connectNow();
        m_page->show();
        QVERIFY(QTest::qWaitForWindowActive(page()));
    }
    void clear()
    {
        m_page.reset();
        KDocumentOpener::setInstance(nullptr);
    }
    /// Answers the reading of a folder; names that end in "/" are folders.
    bool answer(const QString &folder, const QStringList &items)
    {
        return m_cloud->answer("getInfoList", FakeCloud::page(folder, items));
    }
    void load(const QStringList &items)
    {
        make();
        QVERIFY(answer("root"_s, items));
        view()->setFocus();
    }
    QPushButton *button(const char *text, QWidget *in = nullptr) const
    {
        const auto buttons = (in ? in : page())->findChildren<QPushButton *>();
        for (QPushButton *one : buttons) {
            if (one->text() == QLatin1String(text) && one->isVisible())
                return one;
        }
        return nullptr;
    }
    template <class Widget> Widget *find() const { return page()->findChild<Widget *>(); }
    void key(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
    void click(int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, centre(row));
    }
    void doubleClick(int row) const
    {
        click(row);
        QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, centre(row));
    }
    QPoint centre(int row) const { return view()->visualRect(view()->model()->index(row, 0)).center(); }
    State state() const { return page()->states()->state(); }
    QString notice() const ///< what the page says at present
    {
        QStringList texts;
        const auto bars = page()->findChildren<NoticeBar *>();
        for (const NoticeBar *bar : bars) {
            if (bar->isVisible())
                texts << bar->text();
        }
        return texts.join(QLatin1Char(' '));
    }

    ZelBoxCloudDocWidget *page() const { return m_page.get(); }
    QStringList &wanted() { return m_cloud->wanted; }
    CloudDocListView *view() const { return m_page->view(); }

    std::unique_ptr<FakeCloud> m_cloud;
    std::unique_ptr<ZelBoxCloudDocWidget> m_page;
    FakeOpener m_opener;
};

#include "lists/listlayout.h"
#include "lists/listleaving.h"
#include "lists/listmodel.h"
#include "lists/rowselection.h"
#include "support/table.h"

#include <QItemSelectionModel>
#include <QTest>

namespace {

// Row height 10, header height 4, gap 2, bottom margin 3. A negative count is a section without header.
ListLayout layoutOf(const QList<int> &counts)
{
    zel::ListSections sections;
    int first = 0;
    for (const int count : counts) {
        sections << zel::ListSection{0, count > 0 ? "x"_s : QString(), first, qAbs(count)};
        first += qAbs(count);
    }
    return {sections, {10, 4, 2, 3}};
}

/// Rows whose ids are their letters.
class Letters : public ListModel
{
public:
    QString text = "abcdefghij"_s;
    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : text.size(); }
    QVariant data(const QModelIndex &, int) const override { return {}; }
    QString idOf(int row) const override { return text.mid(row, 1); }
    int rowOf(const QString &id) const override { return id.isEmpty() ? -1 : text.indexOf(id); }
    void remove(int row)
    {
        beginRemoveRows({}, row, row);
        text.remove(row, 1);
        endRemoveRows();
    }
};

QStringList ids(const QString &letters)
{
    return letters.split(QString(), Qt::SkipEmptyParts);
}

} // namespace

/// What a list works out without a window.
class TestListLogic : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void places()
    {
        struct Case
        {
            QList<int> counts;
            int y, at, after, before;
        };
        // 0 header, 4 row 0, 14 row 1, 24 header, 28 row 2, 38 row 3, 48 row 4, 58 end, 61 bottom
        const QList<int> two{2, 3};
        const Case cases[] = {{{}, 0, -1, -1, -1}, {two, -5, -1, 0, -1}, {two, 4, 0, 0, 0},
            {two, 13, 0, 0, 0}, {two, 24, -1, 2, 1}, {two, 57, 4, 4, 4}, {two, 58, -1, -1, 4},
            {{-3}, 0, 0, 0, 0}, {{100000}, 4 + 999990, 99999, 99999, 99999}};
        for (const Case &one : cases) {
            const ListLayout layout = layoutOf(one.counts);
            QCOMPARE(layout.rowAt(one.y), one.at);
            QCOMPARE(layout.rowAtOrAfter(one.y), one.after);
            QCOMPARE(layout.rowAtOrBefore(one.y), one.before);
        }
    }

    void sticky()
    {
        struct Case
        {
            QList<int> counts;
            int scroll, section, top;
        };
        const QList<int> two{2, 3};
        const QList<int> unheaded{2, -3};
        const Case cases[] = {{{}, 0, -1, 0}, {two, 0, 0, 0}, {two, 20, 0, 0}, {two, 22, 0, -2},
            {two, 24, 1, 0}, {unheaded, 22, 0, -2},
            {unheaded, 24, -1, 0}}; // rows without a header push it out, too
        for (const Case &one : cases) {
            const auto header = layoutOf(one.counts).stickyHeader(one.scroll);
            QCOMPARE(header.section, one.section);
            QCOMPARE(header.top, one.top);
        }
    }

    void selections()
    {
        Letters model;
        QItemSelectionModel selection(&model);
        selection.select(zel::selectionOf(model, ids("cxbaeca"_s)), QItemSelectionModel::Select);
        QCOMPARE(selection.selection().size(), 2); // a to c, and e
        QCOMPARE(zel::selectedRowIds(&model, &selection).join(QString()), "abce"_s);
        QCOMPARE(zel::selectedRowCount(&selection), 4);
    }

    void removedRowsLeaveToTheNext_data()
    {
        // selected: the last one is current
        // sent: away by the user
        // removed: one after the other; +: "d" is back, and selected
        // after: selected, then the current one
        const auto row =
            zeltest::table<QString, QString, QString, QString>("selected", "sent", "removed", "after");
        row("the next", "d", "d", "d", "e/e");
        row("the last", "j", "j", "j", "i/i");
        row("several", "cge", "cge", "ceg", "f/f");
        row("some of them", "cg", "g", "g", "c/h");
        row("by others", "d", "", "d", "/e");
        row("back again, then by others", "de", "d", "d+d", "/e"); // went while another one was selected, too
        row("the one after it by others", "d", "d", "de", "/f");   // was selected, but not sent away
    }
    void removedRowsLeaveToTheNext()
    {
        QFETCH(QString, selected);
        QFETCH(QString, sent);
        QFETCH(QString, removed);
        Letters model;
        QItemSelectionModel selection(&model);
        for (const QString &id : ids(selected))
            selection.setCurrentIndex(model.index(model.rowOf(id)), QItemSelectionModel::Select);
        ListLeaving leaving;
        leaving.set(ids(sent));
        for (const QString &id : ids(removed)) {
            const int row = model.rowOf(id);
            if (row < 0) {
                model.text = Letters().text;
                selection.setCurrentIndex(model.index(3), QItemSelectionModel::ClearAndSelect);
                continue;
            }
            leaving.leave(model, &selection, row, row);
            model.remove(row);
        }
        const QString now = zel::selectedRowIds(&model, &selection).join(QString());
        QTEST(QString(now + QLatin1Char('/') + model.idOf(selection.currentIndex().row())), "after");
    }
};

QTEST_GUILESS_MAIN(TestListLogic)
#include "tst_listlogic.moc"

// The view of the list pages alone, over rows that are names and no more.
#include "viewtimes.h"

#include "lists/listmodel.h"
#include "lists/ui/sectionlistview.h"

#include <QPainter>

using namespace zel::bench;

namespace {

/// Names in a hundred sections; ids are places of the names in the list that was loaded.
class Names : public ListModel
{
public:
    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : m_names.size();
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? m_names.at(index.row()) : QVariant();
    }
    QString idOf(int row) const override { return QString::number(row); }
    int rowOf(const QString &id) const override { return id.toInt(); }
    zel::ListSections sections() const override
    {
        zel::ListSections sections;
        for (int first = 0; first < m_names.size(); first += Rows / 100)
            sections << zel::ListSection{first, QString::number(first), first, Rows / 100};
        return sections;
    }

    void load(const QStringList &names)
    {
        if (!m_names.isEmpty()) {
            beginRemoveRows({}, 0, m_names.size() - 1);
            m_names.clear();
            endRemoveRows();
        }
        if (names.isEmpty())
            return;
        beginInsertRows({}, 0, names.size() - 1);
        m_names = names;
        endInsertRows();
    }
    void change(int row, const QString &name)
    {
        m_names[row] = name;
        Q_EMIT dataChanged(index(row), index(row));
    }

private:
    QStringList m_names;
};

class NamePainter : public ListRowDelegate
{
public:
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        painter->drawText(option.rect.left(), option.rect.bottom(), index.data().toString());
    }
    int rowHeight(const QFont &font) const override { return QFontMetrics(font).height(); }
    QPixmap dragPixmap(const QModelIndex &, int, const QFont &, qreal) const override { return {}; }
};

const QStringList &names()
{
    static const QStringList list = [] {
        QStringList made;
        for (int row = 0; row < Rows; ++row)
            made << QStringLiteral("Quarterly report %1.odt").arg(row);
        return made;
    }();
    return list;
}

struct Ours
{
    Ours()
    {
        view.setItemDelegate(&delegate);
        view.setModel(&model);
        view.resize(680, 540);
        view.show();
        paint.timeOf([this] { view.viewport()->update(); });
    }
    void load() { model.load(names()); }
    void clear() { model.load({}); }

    Names model;
    NamePainter delegate;
    SectionListView view;
    PaintWait paint{view.viewport()};
};

// At most 1.5 is what we want, beside a plain list with uniform rows.
void listLoadToFirstPaint(benchmark::State &state)
{
    Plain plain(names(), true);
    Ours ours;
    loadTime(plain); // fonts come once
    loadTime(ours);
    compare(
        state, [&] { return loadTime(plain); }, [&] { return loadTime(ours); });
}
BENCHMARK(listLoadToFirstPaint)->Unit(benchmark::kMillisecond)->UseRealTime();

void listChangeToRepaint(benchmark::State &state)
{
    Plain plain(names(), true);
    Ours ours;
    loadTime(plain);
    loadTime(ours);
    int turn = 0;
    compare(
        state,
        [&] {
            const QString text = QString::number(++turn);
            return plain.paint.timeOf([&] { plain.model.setData(plain.model.index(3), text); });
        },
        [&] {
            const QString text = QString::number(++turn);
            return ours.paint.timeOf([&] { ours.model.change(3, text); });
        });
}
BENCHMARK(listChangeToRepaint)->Unit(benchmark::kMillisecond)->UseRealTime();

// At most 0.7 is what we want.
void listScrolledFrame(benchmark::State &state)
{
    Plain plain(names(), true);
    Ours ours;
    loadTime(plain);
    loadTime(ours);
    compare(
        state, [&] { return pageTime(plain); }, [&] { return pageTime(ours); });
}
BENCHMARK(listScrolledFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

#include "recentfile/proxybench.h"

#include "recentfile/recordtexts.h"

#include <QAbstractItemModelTester>
#include <QCollator>

using namespace zel::recent;
using Model = ZelBoxRecentFileModel;

namespace recenttest {

namespace {

const QString Root = QStringLiteral("/x/");

QString rows(int first, int last)
{
    return QStringLiteral("%1-%2").arg(first).arg(last);
}

QString shown(const RecentFileInfo &info)
{
    const QString name = info.path.mid(Root.size());
    return info.id == name ? name : name + QLatin1Char('#') + info.id;
}

bool naivelyBefore(const RecentFileInfo &a, const RecentFileInfo &b, const RecentSort &sort)
{
    const int turn = sort.order == Qt::AscendingOrder ? 1 : -1;
    QCollator collator(QLocale(QLocale::English));
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    const auto sign = [turn](auto x, auto y) { return x == y ? 0 : x < y ? -turn : turn; };
    int order = b.pinned - a.pinned;
    if (order == 0 && sort.key == RecentSort::Key::Name)
        order = turn * collator.compare(shownName(a), shownName(b));
    if (order == 0 && sort.key == RecentSort::Key::Name)
        order = sign(a.path, b.path) != 0 ? sign(a.path, b.path) : sign(a.id, b.id);
    if (order == 0 && sort.key == RecentSort::Key::Size)
        order = a.size < 0 || b.size < 0 ? (a.size < 0) - (b.size < 0) : sign(a.size, b.size);
    if (order == 0 && sort.key == RecentSort::Key::Type)
        order = sign(documentKind(a.path), documentKind(b.path));
    if (order != 0)
        return order < 0;
    const bool newer = std::pair(-a.lastAccess, a.id) < std::pair(-b.lastAccess, b.id);
    return sort.key == RecentSort::Key::Time && turn == 1 ? !newer && a.id != b.id : newer;
}

QString naiveSection(const RecentFileInfo &info, const RecentSort &sort, bool pinnedOnes)
{
    if (info.pinned)
        return QStringLiteral("Pinned");
    if (sort.key == RecentSort::Key::Type)
        return documentKindName(documentKind(info.path));
    if (sort.key != RecentSort::Key::Time)
        return pinnedOnes ? QStringLiteral("Others") : QString();
    const TimeGroupEdges edges = timeGroupEdges(zel::now().date());
    return timeGroupTitle(edges, timeGroupKind(edges, info.lastAccess));
}

template <typename T> T anyOf(QRandomGenerator &random, std::initializer_list<T> values)
{
    return values.begin()[random.bounded(int(values.size()))];
}

} // namespace

ProxyBench::ProxyBench()
{
    setZone("UTC");
    proxy.setSourceModel(&model);
    m_modelTester = std::make_unique<QAbstractItemModelTester>(&model);
    m_proxyTester = std::make_unique<QAbstractItemModelTester>(&proxy);
    using Proxy = RecentSortFilterModel;
    const auto note = [this](const QString &text) { m_signals << text; };
    QObject::connect(&proxy, &Proxy::rowsInserted, &proxy, [note](const QModelIndex &, int first, int last) {
        note(QStringLiteral("inserted ") + rows(first, last));
    });
    QObject::connect(
        &proxy, &Proxy::rowsAboutToBeRemoved, &proxy, [this, note](const QModelIndex &, int first) {
            if (proxy.rowOf(proxy.record(first).id) != first) // a view may still ask
                note(QStringLiteral("LOST"));
        });
    QObject::connect(&proxy, &Proxy::rowsRemoved, &proxy, [note](const QModelIndex &, int first, int last) {
        note(QStringLiteral("removed ") + rows(first, last));
    });
    QObject::connect(&proxy, &Proxy::rowsMoved, &proxy,
        [note](const QModelIndex &, int from, int, const QModelIndex &, int to) {
            note(QStringLiteral("moved %1 to %2").arg(from).arg(to));
        });
    QObject::connect(&proxy, &Proxy::dataChanged, &proxy, [note](const QModelIndex &a, const QModelIndex &b) {
        note(QStringLiteral("changed ") + (a == b ? QString::number(a.row()) : rows(a.row(), b.row())));
    });
    QObject::connect(&proxy, &Proxy::layoutChanged, &proxy, [note] { note(QStringLiteral("layout")); });
    QObject::connect(&proxy, &Proxy::modelReset, &proxy, [note] { note(QStringLiteral("reset")); });
    QObject::connect(&proxy, &Proxy::sectionsChanged, &proxy, [note] { note(QStringLiteral("sections")); });
}

ProxyBench::~ProxyBench() = default;

RecordInfoList ProxyBench::records(const QString &texts) const
{
    RecordInfoList list;
    for (QString text : texts.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const bool pinned = text.endsWith(QLatin1Char('*'));
        text.remove(QLatin1Char('*'));
        const QString name = text.section(QLatin1Char('@'), 0, 0);
        const QStringList numbers = text.section(QLatin1Char('@'), 1).split(QLatin1Char('='));
        RecentFileInfo info =
            record(name, at(QStringLiteral("2024-03-20 12:00")).addDays(-numbers.value(0).toInt()));
        info.path = Root + name;
        info.pinned = pinned;
        info.size = numbers.size() > 1 ? numbers.at(1).toLongLong() : -1;
        list << info;
    }
    return list;
}

RecordInfoList ProxyBench::many(int count)
{
    RecordInfoList list;
    const QStringList words{QStringLiteral("Report "), QStringLiteral("budget"), QString::fromUtf8("Über "),
        QString::fromUtf8("报告"), QStringLiteral("DSC_")};
    for (int i = 0; i < count; ++i) {
        RecentFileInfo info = record(QStringLiteral("m%1").arg(i), 1710936000000 - i * 3600000LL);
        info.path = Root + QString::number(i % 7) + QLatin1Char('/') + words.at(i % words.size())
            + QString::number(i * 37 % (count / 2 + 1)) + QStringLiteral(".odt");
        info.pinned = i % 1000 == 1;
        list << info;
    }
    return list;
}

void ProxyBench::change(const QString &text)
{
    const QString verb = text.section(QLatin1Char(' '), 0, 0);
    const QString rest = text.section(QLatin1Char(' '), 1);
    const QString id = rest.section(QLatin1Char(' '), 0, 0);
    const int row = model.rowOf(id);
    if (verb == QLatin1String("add")) {
        model.addRecord(records(rest).first());
    } else if (verb == QLatin1String("set")) {
        model.updateRecord(records(rest).first());
    } else if (verb == QLatin1String("remove")) {
        model.removeRecord(id);
    } else if (verb == QLatin1String("unread")) {
        model.setData(model.index(row), Model::Modified, Model::UnreadRole);
    } else {
        Q_ASSERT(verb == QLatin1String("rename") && row >= 0);
        RecentFileInfo info = model.record(row);
        info.path = Root + rest.section(QLatin1Char(' '), 1);
        model.updateRecord(info);
    }
}

RecentFileInfo ProxyBench::randomRecord(QRandomGenerator &random) const
{
    RecentFileInfo info = record(QStringLiteral("i%1").arg(random.bounded(60)),
        at(QStringLiteral("2024-03-20 12:00")).addDays(-random.bounded(100)));
    info.path = Root + anyOf(random, {QStringLiteral("a/"), QStringLiteral("b/"), QString()})
        + anyOf(random, {QStringLiteral("Report"), QStringLiteral("report"), QString::fromUtf8("Über")})
        + QString::number(random.bounded(20))
        + anyOf(random, {QStringLiteral(".odt"), QStringLiteral(".ods"), QStringLiteral(".zzz")});
    info.size = random.bounded(5) - 1;
    info.pinned = random.bounded(5) == 0;
    info.unread = random.bounded(3) - 1;
    info.roamingId = random.bounded(2) == 0 ? info.id : QString();
    return info;
}

QString ProxyBench::randomSourceStep(QRandomGenerator &random)
{
    const int some = random.bounded(100);
    if (some < 70) {
        model.addRecord(randomRecord(random));
        return QStringLiteral("add or change");
    }
    if (some < 85) {
        model.removeRecord(randomRecord(random).id);
        return QStringLiteral("remove");
    }
    if (some < 90) {
        const int row = random.bounded(10);
        model.removeRows(row, 1 + random.bounded(10));
        return QStringLiteral("remove several");
    }
    if (some < 92) {
        model.removeAll();
        return QStringLiteral("remove all");
    }
    if (some < 95) {
        RecordInfoList list;
        for (int i = random.bounded(60); i > 0; --i)
            list << randomRecord(random);
        model.setRecords(list);
        return QStringLiteral("load");
    }
    if (some < 98) {
        model.clearUnread();
        return QStringLiteral("clear marks");
    }
    zel::setFixedNow(at(QStringLiteral("2024-03-20 12:00")).addDays(random.bounded(30)));
    model.refreshDay();
    return QStringLiteral("another day");
}

QString ProxyBench::randomStep(QRandomGenerator &random)
{
    keepIndexes(random);
    const int some = random.bounded(100);
    m_mayLoseIndexes = some >= 10;
    if (some < 10) {
        proxy.setSort({anyOf(random,
                           {RecentSort::Key::Time, RecentSort::Key::Name, RecentSort::Key::Size,
                               RecentSort::Key::Type}),
            anyOf(random, {Qt::AscendingOrder, Qt::DescendingOrder})});
        return QStringLiteral("sort");
    }
    if (some < 25) {
        const DocumentKinds kinds = anyOf(random,
            {DocumentKinds(), DocumentKinds(DocumentKind::Sheet), DocumentKind::Text | DocumentKind::Other});
        proxy.setFilter({anyOf(random,
                             {QString(), QStringLiteral("1"), QStringLiteral("1 rep"), QStringLiteral("uber"),
                                 QStringLiteral("a/"), QStringLiteral("nothing")}),
            kinds});
        return QStringLiteral("filter");
    }
    return randomSourceStep(random);
}

void ProxyBench::keepIndexes(QRandomGenerator &random)
{
    for (const QAbstractItemModel *one :
        {static_cast<QAbstractItemModel *>(&model), static_cast<QAbstractItemModel *>(&proxy)}) {
        if (one->rowCount() == 0)
            continue;
        const QModelIndex index = one->index(random.bounded(one->rowCount()), 0);
        m_kept.push_back({index, index.data(Model::IdRole).toString()});
    }
}

bool ProxyBench::persistentIndexesAreRight()
{
    if (takeSignals().contains(QLatin1String("LOST")))
        return false;
    for (const Kept &kept : m_kept) {
        if (kept.index.isValid() ? kept.index.data(Model::IdRole).toString() != kept.id : !m_mayLoseIndexes)
            return false;
    }
    std::erase_if(m_kept, [](const Kept &kept) { return !kept.index.isValid(); });
    if (m_kept.size() > 30)
        m_kept.erase(m_kept.begin(), m_kept.begin() + 10);
    return true;
}

QString ProxyBench::print() const
{
    QStringList texts;
    int next = 0;
    for (const RecentSection &section : proxy.sections()) {
        if (section.firstRow != next || section.count == 0)
            texts << QStringLiteral("GAP");
        next = section.firstRow + section.count;
        texts << QLatin1Char('[') + section.title + QLatin1Char(']');
        for (int row = section.firstRow; row < next; ++row)
            texts << shown(proxy.record(row));
    }
    if (next != proxy.rowCount())
        texts << QStringLiteral("GAP");
    return texts.join(QLatin1Char(' '));
}

QString ProxyBench::naivePrint(const RecentSort &sort) const
{
    std::vector<RecentFileInfo> list;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (passes(proxy.filter(), model.record(row)))
            list.push_back(model.record(row));
    }
    std::sort(
        list.begin(), list.end(), [&](const auto &a, const auto &b) { return naivelyBefore(a, b, sort); });
    QStringList texts;
    QString last = QStringLiteral("none");
    for (const RecentFileInfo &info : list) {
        const QString section = naiveSection(info, sort, list.front().pinned);
        if (section != last)
            texts << QLatin1Char('[') + section + QLatin1Char(']');
        last = section;
        texts << shown(info);
    }
    return texts.join(QLatin1Char(' '));
}

QString ProxyBench::takeSignals()
{
    const QString text = m_signals.join(QStringLiteral("; "));
    m_signals.clear();
    return text;
}

} // namespace recenttest

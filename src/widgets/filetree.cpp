#include "widgets/filetree.h"

#include "base/boundedjobs.h"
#include "base/namecollator.h"
#include "kfileiconprovider.h"
#include "widgets/nametext.h"
#include "widgets/svgicon.h"

#include <QDir>
#include <QSet>
#include <algorithm>
#include <chrono>
#include <memory>

using namespace std::chrono_literals;

namespace {

constexpr int StateRole = FileTree::FolderRole + 1;
enum State { Unread, Reading, Known, Unknown }; // of a folder's content; Unknown: it could not be read

constexpr std::chrono::milliseconds Patience = 10s; // an automounter may need some

// Never destroyed: jobs may end while static objects go.
zel::BoundedJobs &jobs()
{
    static auto *all = new zel::BoundedJobs(Patience);
    return *all;
}

QString below(const QString &folder, const QString &name)
{
    return folder % (folder.endsWith(QLatin1Char('/')) ? QString() : QStringLiteral("/")) % name;
}

QString nameOf(const QStandardItem *item)
{
    return item->data(FileTree::PathRole).toString().section(QLatin1Char('/'), -1);
}

// Folders first, then by name as file managers do.
void arrange(zel::FolderNames &names)
{
    const QCollator collator = zel::nameCollator();
    QVector<std::pair<QCollatorSortKey, zel::FolderName>> keyed;
    for (const zel::FolderName &each : names)
        keyed.append({collator.sortKey(each.name), each});
    std::sort(keyed.begin(), keyed.end(), [](const auto &a, const auto &b) {
        if (a.second.folder != b.second.folder)
            return a.second.folder;
        const int order = a.first.compare(b.first);
        return order != 0 ? order < 0 : a.second.name < b.second.name;
    });
    std::transform(keyed.cbegin(), keyed.cend(), names.begin(), [](const auto &each) { return each.second; });
}

} // namespace

FileTree::FileTree(bool withFiles, QObject *parent)
    : QStandardItemModel(parent),
      m_withFiles(withFiles),
      m_folderIcon(zel::tintedIcon(QStringLiteral(":/icons_svg/folder.svg"), KSkin::Color::Accent))
{
    QStandardItem *root = makeItem({}, {QString(), true});
    root->setText(QDir::rootPath());
    appendRow(root);
}

QStandardItem *FileTree::makeItem(const QString &folder, const zel::FolderName &entry) const
{
    auto *item =
        new QStandardItem(entry.folder ? m_folderIcon : KFileIconProvider::instance()->icon(entry.name),
            zel::plainLine(entry.name));
    item->setEditable(false);
    item->setData(below(folder, entry.name), PathRole);
    item->setData(entry.folder, FolderRole);
    item->setData(Unread, StateRole);
    return item;
}

QModelIndex FileTree::reach(const QString &path)
{
    QStandardItem *item = this->item(0);
    const QStringList names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &name : names) {
        int row = 0;
        while (row < item->rowCount() && nameOf(item->child(row)) != name)
            ++row;
        if (row == item->rowCount())
            item->appendRow(makeItem(pathOf(item->index()), {name, true}));
        item = item->child(row);
    }
    return item->index();
}

bool FileTree::hasChildren(const QModelIndex &parent) const
{
    const bool mayHave = isFolder(parent) && parent.data(StateRole).toInt() != Known;
    return mayHave || QStandardItemModel::hasChildren(parent);
}

bool FileTree::canFetchMore(const QModelIndex &parent) const
{
    return isFolder(parent) && parent.data(StateRole).toInt() == Unread;
}

bool FileTree::mayBeRead(const QModelIndex &index)
{
    return isFolder(index) && index.data(StateRole).toInt() != Unknown;
}

void FileTree::read(const QModelIndex &folder)
{
    if (!isFolder(folder) || folder.data(StateRole).toInt() == Reading)
        return;
    setData(folder, Reading, StateRole);
    const QString path = pathOf(folder);
    const auto found = std::make_shared<std::optional<zel::FolderNames>>();
    const auto take = [=, this, row = QPersistentModelIndex(folder)](bool inTime) {
        if (!row.isValid())
            return;
        const bool known = inTime && found->has_value();
        if (known)
            this->take(itemFromIndex(row), found->value());
        setData(row, known ? Known : Unknown, StateRole);
        Q_EMIT folderRead(path, known ? Outcome::Read : inTime ? Outcome::Refused : Outcome::NoAnswer);
    };
    jobs().start(
        below(path, {}), [path, found] { *found = zel::namesIn(path); }, this, take);
}

// What is there already stays: it may be open, or be the one that the user is at. A name that was reached but
// is not listed is hidden, or has just gone.
void FileTree::take(QStandardItem *folder, const zel::FolderNames &names)
{
    zel::FolderNames sorted;
    std::copy_if(names.cbegin(), names.cend(), std::back_inserter(sorted),
        [this](const zel::FolderName &each) { return m_withFiles || each.folder; });
    arrange(sorted);
    QSet<std::pair<QString, bool>> listed;
    for (const zel::FolderName &each : qAsConst(sorted))
        listed.insert({each.name, each.folder});
    QSet<QString> known;
    for (int row = folder->rowCount() - 1; row >= 0; --row) {
        const QStandardItem *child = folder->child(row);
        const QString name = nameOf(child);
        const bool stays = listed.contains({name, child->data(FolderRole).toBool()});
        if (!stays && !name.startsWith(QLatin1Char('.')))
            folder->removeRow(row);
        else if (stays)
            known.insert(name);
    }
    int row = 0;
    QList<QStandardItem *> fresh;
    const auto insertFresh = [&] {
        folder->insertRows(row, fresh);
        row += fresh.size();
        fresh.clear();
    };
    for (const zel::FolderName &each : qAsConst(sorted)) {
        if (!known.contains(each.name)) {
            fresh.append(makeItem(pathOf(folder->index()), each));
            continue;
        }
        insertFresh();
        while (row < folder->rowCount() && nameOf(folder->child(row)) != each.name)
            ++row;
        ++row;
    }
    insertFresh();
}

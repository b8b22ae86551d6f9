#include "widgets/localfiledialog.h"

#include "klitestyle.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

using Kind = zel::FileQuestion::Kind;

LocalFileDialog::LocalFileDialog(const zel::FileQuestion &question, QWidget *parent)
    : BoxDialog(question.title, question.title, parent),
      m_kind(question.kind),
      m_files(new FileTree(question.kind != Kind::Folder, this)),
      m_path(new QLineEdit(this)),
      m_tree(new QTreeView(this)),
      m_problem(new QLabel(this))
{
    m_tree->setModel(m_files);
    m_tree->setAccessibleName(m_kind == Kind::Folder ? tr("Folders") : tr("Files"));
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    if (m_kind == Kind::Files)
        m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_path->setAccessibleName(m_kind == Kind::Folder ? tr("Folder path") : tr("File path"));
    body()->addWidget(m_path);
    body()->addWidget(m_tree, 1);
    body()->addWidget(m_problem);
    makeResizable(KLiteStyle::dpiScaledSize({480, 460}));

    m_accept = buttons()->addButton(question.accept, QDialogButtonBox::AcceptRole);
    m_accept->setDefault(true);
    buttons()->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(m_path, &QLineEdit::textChanged, this, &LocalFileDialog::onTyped);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this, &LocalFileDialog::onPicked);
    connect(m_tree, &QTreeView::expanded, m_files, &FileTree::read);
    connect(m_tree, &QTreeView::doubleClicked, this, [this](const QModelIndex &row) {
        if (!FileTree::isFolder(row))
            accept();
    });
    connect(m_files, &FileTree::folderRead, this, &LocalFileDialog::onRead, Qt::QueuedConnection);
    m_tree->installEventFilter(this);
    m_tree->viewport()->installEventFilter(this);
    beginAt(QDir::cleanPath(QDir::isAbsolutePath(question.folder) ? question.folder : QDir::homePath()));
    m_tree->setFocus();
}

void LocalFileDialog::beginAt(const QString &folder)
{
    const QModelIndex begin = m_files->reach(folder);
    for (QModelIndex each = begin; each.isValid(); each = each.parent())
        m_tree->expand(each);
    m_tree->setCurrentIndex(begin);
}

QStringList LocalFileDialog::selectedPaths() const
{
    const QString typed = m_path->text();
    QStringList paths;
    if (typed == FileTree::pathOf(m_tree->currentIndex())) {
        const QModelIndexList rows = m_tree->selectionModel()->selectedRows();
        for (const QModelIndex &row : rows)
            paths.append(FileTree::pathOf(row));
    }
    // Whether it exists is asked by who uses it, off the GUI thread: it may be on a mount that hangs.
    if (paths.isEmpty() && QDir::isAbsolutePath(typed))
        paths.append(QDir::cleanPath(typed));
    return paths;
}

// A folder is where files are looked for.
void LocalFileDialog::accept()
{
    const QStringList paths = selectedPaths();
    if (paths.isEmpty())
        return;
    const QModelIndex current = m_tree->currentIndex();
    if (m_kind != Kind::Folder && paths == QStringList{FileTree::pathOf(current)}
        && FileTree::mayBeRead(current))
        return m_tree->setExpanded(current, !m_tree->isExpanded(current));
    Q_EMIT chosen(paths);
    QDialog::accept();
}

void LocalFileDialog::tell(const QString &problem)
{
    m_problem->setText(problem);
}

bool LocalFileDialog::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress || type == QEvent::Wheel || type == QEvent::KeyPress)
        m_userMoved = true;
    return BoxDialog::eventFilter(watched, event);
}

void LocalFileDialog::onPicked()
{
    if (m_tree->currentIndex().isValid()) // a row that was reached may turn out not to be there
        m_path->setText(FileTree::pathOf(m_tree->currentIndex()));
}

void LocalFileDialog::onTyped()
{
    m_problem->clear();
    m_accept->setEnabled(!selectedPaths().isEmpty());
}

// Folders come one after the other, each pushing the current one out of sight.
void LocalFileDialog::onRead(const QString &path, FileTree::Outcome outcome)
{
    if (!m_userMoved)
        m_tree->scrollTo(m_tree->currentIndex(), QAbstractItemView::PositionAtCenter);
    if (outcome != FileTree::Outcome::Read && path == FileTree::pathOf(m_tree->currentIndex()))
        tell(outcome == FileTree::Outcome::Refused ? tr("This folder cannot be read.")
                                                   : tr("This folder does not answer."));
}

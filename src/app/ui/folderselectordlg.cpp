#include "app/ui/folderselectordlg.h"

#include "klitestyle.h"
#include "widgets/svgicon.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

/// The box's own folder picture instead of the style's.
class FolderIcons final : public QFileIconProvider
{
public:
    QIcon icon(const QFileInfo &) const override { return m_folder; }
    QIcon icon(IconType) const override { return m_folder; }

private:
    QIcon m_folder = zel::tintedIcon(QStringLiteral(":/icons_svg/folder.svg"), KSkin::Color::Accent);
};

// The model's thread asks it as well and the model does not own it, so it lives as long as the process.
FolderIcons *icons()
{
    static FolderIcons provider;
    return &provider;
}

} // namespace

FolderSelectorDlg::FolderSelectorDlg(QWidget *parent)
    : BoxDialog(tr("Select folder"), tr("Select a folder"), parent),
      m_model(new QFileSystemModel(this)),
      m_path(new QLineEdit(this)),
      m_tree(new QTreeView(this)),
      m_open(nullptr),
      m_problem(new QLabel(this))
{
    m_model->setFilter(QDir::Dirs | QDir::NoDotAndDotDot);
    m_model->setIconProvider(icons());
    m_model->setRootPath(QDir::rootPath());
    m_tree->setModel(m_model);
    m_tree->setAccessibleName(tr("Folders"));
    m_tree->setHeaderHidden(true);
    for (int column = 1; column < m_model->columnCount(); ++column)
        m_tree->hideColumn(column);
    m_path->setAccessibleName(tr("Folder path"));
    body()->addWidget(m_path);
    body()->addWidget(m_tree, 1);
    body()->addWidget(m_problem);
    makeResizable(KLiteStyle::dpiScaledSize({480, 460}));

    m_open = buttons()->addButton(tr("Open"), QDialogButtonBox::AcceptRole);
    m_open->setDefault(true);
    buttons()->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(m_path, &QLineEdit::textChanged, this, &FolderSelectorDlg::onTyped);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
        &FolderSelectorDlg::onTreeChoice);
    connect(KDocumentOpener::instance(), &KDocumentOpener::opened, this, &FolderSelectorDlg::onOpened);
    m_tree->installEventFilter(this);
    m_tree->viewport()->installEventFilter(this);

    const QPersistentModelIndex home = m_model->index(QDir::homePath());
    m_tree->setCurrentIndex(home);
    m_tree->expand(home);
    m_tree->setFocus();
    // Folders arrive from the model's thread and are sorted later still, each time pushing the current one
    // out of sight.
    const auto keepInSight = [this, home] {
        if (!m_userMoved)
            m_tree->scrollTo(home, QAbstractItemView::PositionAtCenter);
    };
    connect(m_model, &QFileSystemModel::directoryLoaded, m_tree, keepInSight, Qt::QueuedConnection);
    connect(m_model, &QAbstractItemModel::layoutChanged, m_tree, keepInSight, Qt::QueuedConnection);
}

QString FolderSelectorDlg::selectedPath() const
{
    // Whether it exists is asked off the GUI thread, when it is opened: it may be on a mount that hangs.
    return QDir::isAbsolutePath(m_path->text()) ? QDir::cleanPath(m_path->text()) : QString();
}

void FolderSelectorDlg::accept()
{
    if (const QString path = selectedPath(); !path.isEmpty())
        KDocumentOpener::instance()->open(path);
}

void FolderSelectorDlg::onOpened(const QString &path, KDocumentOpener::Outcome outcome)
{
    if (path != selectedPath())
        return;
    if (outcome != KDocumentOpener::Outcome::Opened)
        return m_problem->setText(tr("This folder cannot be opened."));
    Q_EMIT folderSelected(path);
    QDialog::accept();
}

bool FolderSelectorDlg::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress || type == QEvent::Wheel || type == QEvent::KeyPress)
        m_userMoved = true;
    return BoxDialog::eventFilter(watched, event);
}

void FolderSelectorDlg::onTyped()
{
    m_problem->clear();
    m_open->setEnabled(!selectedPath().isEmpty());
}

void FolderSelectorDlg::onTreeChoice(const QModelIndex &index)
{
    if (index.isValid())
        m_path->setText(m_model->filePath(index));
}

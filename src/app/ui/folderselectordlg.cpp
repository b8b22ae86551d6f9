#include "app/ui/folderselectordlg.h"

#include "klitestyle.h"
#include "widgets/svgicon.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
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
      m_open(nullptr)
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
    resize(KLiteStyle::dpiScaledSize({480, 460}));

    m_open = buttons()->addButton(tr("Open"), QDialogButtonBox::AcceptRole);
    m_open->setDefault(true);
    buttons()->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(m_path, &QLineEdit::textChanged, this, &FolderSelectorDlg::onTyped);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
        &FolderSelectorDlg::onTreeChoice);
    connect(this, &QDialog::accepted, this, [this] {
        if (const QString path = selectedPath(); !path.isEmpty())
            Q_EMIT folderSelected(path);
    });

    const QPersistentModelIndex home = m_model->index(QDir::homePath());
    m_tree->setCurrentIndex(home);
    m_tree->expand(home);
    m_tree->setFocus();
    // Folders arrive from the model's thread and are sorted later still, each time pushing the current one
    // out of sight.
    const auto keepInSight = [this, home] {
        if (m_tree->currentIndex() == home)
            m_tree->scrollTo(home, QAbstractItemView::PositionAtCenter);
    };
    connect(m_model, &QFileSystemModel::directoryLoaded, m_tree, keepInSight, Qt::QueuedConnection);
    connect(m_model, &QAbstractItemModel::layoutChanged, m_tree, keepInSight, Qt::QueuedConnection);
}

QString FolderSelectorDlg::selectedPath() const
{
    const QFileInfo info(m_path->text());
    return info.isAbsolute() && info.isDir() ? QDir::cleanPath(info.absoluteFilePath()) : QString();
}

void FolderSelectorDlg::onTyped(const QString &)
{
    m_open->setEnabled(!selectedPath().isEmpty());
}

void FolderSelectorDlg::onTreeChoice(const QModelIndex &index)
{
    if (index.isValid())
        m_path->setText(m_model->filePath(index));
}

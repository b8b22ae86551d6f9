#include "clouddoc/ui/movedialog.h"

#include "clouddoc/clouddoclogic.h"
#include "clouddoc/cloudproblemtext.h"
#include "clouddoc/ui/breadcrumbbar.h"
#include "clouddoc/ui/clouddocdelegate.h"
#include "clouddoc/ui/crumbtexts.h"
#include "klitestyle.h"
#include "lists/ui/sectionlistview.h"
#include "widgets/iconbutton.h"
#include "widgets/nametext.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using Logic = CloudDocLogic;

MoveDialog::MoveDialog(KCloudSvrProxy *proxy, const QStringList &ids, const QString &name,
    const MayMove &mayMove, QWidget *parent)
    : BoxDialog(tr("Move to"),
        ids.size() == 1 ? tr("Move “%1” to").arg(headingName(name))
                        : tr("Move %Ln item(s) to", nullptr, ids.size()),
        parent),
      m_logic(new Logic(proxy, this)),
      m_mayMove(mayMove),
      m_crumbs(new BreadcrumbBar(this)),
      m_view(new SectionListView(this)),
      m_delegate(new CloudDocDelegate(this)),
      m_note(new QLabel(this)),
      m_newFolder(new IconButton(QStringLiteral(":/icons_svg/folder_new.svg"), tr("New Folder"), this))
{
    m_logic->documents()->showFoldersOnly(ids);
    layOut();
    connectLogic();
    update();
    m_view->setFocus();
    makeResizable(KLiteStyle::dpiScaledSize({460, 480}));
}

void MoveDialog::layOut()
{
    m_view->setItemDelegate(m_delegate);
    m_view->setModel(m_logic->documents());
    m_view->setFrameShape(QFrame::StyledPanel);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setContextMenuPolicy(Qt::DefaultContextMenu);
    m_view->setTypeToFilter(false);
    m_view->setAccessibleName(tr("Folders"));
    bindKeys();
    m_delegate->setNameCheck(
        [this](const QString &id, const QString &name) { return m_logic->checkName(name, id); });
    m_note->setAlignment(Qt::AlignCenter);
    m_note->setWordWrap(true);
    m_note->setForegroundRole(QPalette::PlaceholderText);
    auto *inView = new QVBoxLayout(m_view->viewport()); // over the rows that are not there
    inView->addWidget(m_note);
    auto *way = new QHBoxLayout;
    way->addWidget(m_crumbs, 1);
    way->addWidget(m_newFolder);
    body()->addLayout(way);
    body()->addWidget(m_view, 1);
    m_move = buttons()->addButton(tr("Move"), QDialogButtonBox::AcceptRole);
    m_move->setDefault(true);
    buttons()->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setAutoDefault(false);
}

void MoveDialog::connectLogic()
{
    connect(m_logic, &Logic::stateChanged, this, &MoveDialog::update);
    connect(m_logic, &Logic::folderChanged, this, &MoveDialog::update);
    connect(m_logic, &Logic::crumbsChanged, this, &MoveDialog::update);
    connect(m_logic, &Logic::folderCreated, this, &MoveDialog::onFolderCreated);
    connect(m_logic, &Logic::operationFailed, this,
        [this](CloudOperation operation, CloudProblem problem, int count) {
            m_note->setText(zel::clouddoc::failureText(operation, problem, count));
            m_note->show();
        });
    connect(m_logic, &Logic::renameEnded, m_delegate, &CloudDocDelegate::forgetNewName);
    connect(m_delegate, &CloudDocDelegate::renameRequested, m_logic, &Logic::rename);
    connect(m_logic->documents(), &CloudDocModel::countsChanged, this, &MoveDialog::update);
    connect(m_crumbs, &BreadcrumbBar::crumbChosen, m_logic, &Logic::openFolder);
    connect(m_view, &QAbstractItemView::doubleClicked, this, &MoveDialog::enter);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &MoveDialog::update);
    connect(m_newFolder, &QAbstractButton::clicked, this,
        [this] { m_logic->createFolder(m_logic->freeFolderName(tr("New Folder"))); });
}

void MoveDialog::openFolder(const QString &id)
{
    if (id.isEmpty())
        m_logic->openRoot();
    else
        m_logic->openFolder(id);
}

void MoveDialog::enter(const QModelIndex &index)
{
    if (index.isValid())
        m_logic->openFolder(index.data(CloudDocModel::IdRole).toString());
}

QString MoveDialog::target() const
{
    const QModelIndexList rows = m_view->selectionModel()->selectedIndexes();
    return rows.isEmpty() ? m_logic->folderId() : rows.constFirst().data(CloudDocModel::IdRole).toString();
}

QString MoveDialog::targetName() const
{
    const QModelIndexList rows = m_view->selectionModel()->selectedIndexes();
    if (!rows.isEmpty())
        return rows.constFirst().data(CloudDocModel::NameRole).toString();
    return m_crumbs->crumbs().isEmpty() ? QString() : m_crumbs->crumbs().constLast().name;
}

void MoveDialog::update()
{
    m_crumbs->setCrumbs(zel::clouddoc::namedCrumbs(m_logic->crumbs()));
    const bool ready = m_logic->state() == Logic::State::Ready;
    m_newFolder->setEnabled(ready);
    m_move->setEnabled(ready && m_mayMove(target()));
    m_move->setAccessibleDescription(tr("To “%1”").arg(zel::plainLine(targetName())));
    const bool loading = m_logic->state() == Logic::State::Loading || !m_logic->isComplete();
    QString note;
    if (m_logic->state() == Logic::State::Offline)
        note = tr("The cloud service is not reachable at present.");
    else if (m_logic->state() == Logic::State::Failed)
        note = zel::clouddoc::problemText(m_logic->problem());
    else if (!loading && m_logic->documents()->rowCount() == 0)
        note = tr("There are no folders in here.");
    m_note->setText(note);
    m_note->setVisible(!note.isEmpty());
}

void MoveDialog::onFolderCreated(const QString &id)
{
    m_view->beginRename(m_logic->documents()->index(m_logic->documents()->rowOf(id)));
}

void MoveDialog::accept()
{
    const QString chosen = target();
    if (!m_move->isEnabled())
        return;
    Q_EMIT folderChosen(chosen);
    BoxDialog::accept();
}

// Enter moves; Right and Left go into a folder and out of it, as in a tree.
void MoveDialog::bindKeys()
{
    using Needs = ListKeyboard::Needs;
    ListKeyboard &keys = m_view->keyboard();
    for (const int key : {int(Qt::Key_Return), int(Qt::Key_Enter)})
        keys.bind(key, Needs::Nothing, [this] { accept(); });
    keys.bind(Qt::Key_Escape, Needs::Nothing, [this] { reject(); });
    keys.bind(Qt::Key_Right, Needs::Row, [this] { enter(m_view->currentIndex()); });
    for (const int key : {int(Qt::Key_Left), int(Qt::Key_Backspace)}) {
        keys.bind(key, Needs::Nothing, [this] {
            if (m_logic->canGoUp())
                m_logic->up();
        });
    }
}

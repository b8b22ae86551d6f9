#include "mini/ui/recentpicker.h"

#include "klitestyle.h"
#include "lists/ui/openingnotices.h"
#include "lists/ui/sectionlistview.h"
#include "recentfile/recentfilelogic.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentactiontable.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "widgets/emptystate.h"
#include "widgets/noticearea.h"
#include "widgets/noticebar.h"
#include "widgets/searchfield.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

RecentPicker::RecentPicker(const Services &services, QWidget *parent)
    : QWidget(parent),
      m_model(new ZelBoxRecentFileModel(this)),
      m_logic(new KRecentFileLogic(services, this)),
      m_rows(new RecentSortFilterModel(this)),
      m_input(new SearchField(tr("Search recent documents"), this)),
      m_list(new SectionListView(this)),
      m_nothing(new EmptyStateWidget(QStringLiteral(":/icons_svg/empty_recent.svg"), {}, {}, this)),
      m_notice((new NoticeArea(this))->addBar())
{
    m_logic->setModel(m_model);
    m_rows->setSourceModel(m_model);
    // The glyph is a picture, and the clear button works with the keyboard anyway: neither is a stop.
    for (QToolButton *button : m_input->findChildren<QToolButton *>())
        button->setFocusPolicy(Qt::NoFocus);
    m_list->setAccessibleName(tr("Recent documents"));
    auto *delegate = new ZelBoxRecentFileDelegate(m_list);
    delegate->setOffersButtons(false);
    m_list->setItemDelegate(delegate);
    m_list->setModel(m_rows);
    m_list->setSectionsShown(false);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setFocusPolicy(Qt::NoFocus);
    layOut();
    connectModels();
    connectInput();
    updateState();
}

RecentPicker::~RecentPicker() = default;

void RecentPicker::layOut()
{
    const int side = KLiteStyle::dpiScaled(12);
    auto *field = new QVBoxLayout;
    field->setContentsMargins(side, 0, side, 0);
    field->setSpacing(KLiteStyle::dpiScaled(8));
    field->addWidget(m_input);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(KLiteStyle::dpiScaled(8));
    layout->addLayout(field);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_nothing, 1);
}

// No row is cut off at the lower edge.
void RecentPicker::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const int above = m_input->sizeHint().height() + layout()->spacing();
    layout()->setContentsMargins(0, 0, 0, qMax(0, height() - above) % m_list->rowHeight());
}

void RecentPicker::connectModels()
{
    // What the pages and the store tell comes in steps; the list is looked at once all of them are done.
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_rows, signal, this, &RecentPicker::updateState, Qt::QueuedConnection);
    connect(m_list, &SectionListView::visibleRowsSettled, this, &RecentPicker::checkPresence);
    connect(m_logic, &KRecentFileLogic::firstLoadingFinish, this, &RecentPicker::updateState);
    connect(m_logic, &KRecentFileLogic::itemsBatchArrived, this, &RecentPicker::updateState);
    new OpeningNotices(m_logic->opening(), m_notice, this);
    connect(m_logic->opening(), &DocumentOpening::opened, this, &RecentPicker::documentOpened);
}

void RecentPicker::connectInput()
{
    m_input->installEventFilter(this);
    connect(m_input, &QLineEdit::textChanged, this, [this](const QString &text) {
        RecentFilter filter;
        filter.text = text;
        m_rows->setFilter(filter);
        m_list->setMarkedWords(m_rows->words().words());
        chooseFirst();
        updateState();
    });
    connect(m_list, &SectionListView::clicked, this, [this] { openRow(chosen()); });
    connect(m_list, &QWidget::customContextMenuRequested, this, &RecentPicker::showMenu);
}

void RecentPicker::focusInput()
{
    m_input->setFocus(Qt::OtherFocusReason);
    m_input->selectAll();
}

bool RecentPicker::clearInput()
{
    const bool filled = !m_input->text().isEmpty();
    m_input->clear();
    return filled;
}

void RecentPicker::startLoading()
{
    m_logic->onWindowFirstShown();
}

void RecentPicker::setPopupsAllowed(bool allowed)
{
    m_input->setContextMenuPolicy(allowed ? Qt::DefaultContextMenu : Qt::PreventContextMenu);
    m_list->setContextMenuPolicy(allowed ? Qt::CustomContextMenu : Qt::PreventContextMenu);
}

QModelIndex RecentPicker::chosen() const
{
    return m_list->currentIndex().isValid() ? m_list->currentIndex() : m_rows->index(0);
}

void RecentPicker::openRow(const QModelIndex &row)
{
    if (!row.isValid())
        return;
    m_notice->hide();
    m_logic->open(m_rows->mapToSource(row));
}

void RecentPicker::revealRow(const QModelIndex &row)
{
    if (!row.isValid())
        return;
    if (row.data(ZelBoxRecentFileModel::PathRole).toString().isEmpty())
        return m_notice->showText(openProblemText(
            DocumentOpening::Problem::NotOnThisDevice, row.data(ZelBoxRecentFileModel::NameRole).toString()));
    m_notice->hide();
    m_logic->opening()->reveal(row.data(ZelBoxRecentFileModel::PathRole).toString());
}

void RecentPicker::showMenu(const QPoint &inList)
{
    const QModelIndex row = m_list->indexAt(inList);
    if (!row.isValid())
        return;
    m_list->setCurrentIndex(row);
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QVector<int> commands{int(RecentCommand::Open), int(RecentCommand::OpenFolder)};
    recentActionTable().fill(
        menu, commands, [](int) { return 1; },
        [this, asked = QPersistentModelIndex(row)](int command) { // which may go while the menu is open
            if (asked.isValid())
                command == int(RecentCommand::Open) ? openRow(asked) : revealRow(asked);
        });
    m_list->popUp(menu, m_list->viewport()->mapToGlobal(inList));
}

void RecentPicker::chooseFirst()
{
    m_list->setCurrentIndex(m_rows->index(0));
    m_list->scrollToTop();
}

// Nothing is said about an empty list before it was loaded.
void RecentPicker::updateState()
{
    const bool loading = m_logic->isWaitingForFirstLoad() || m_logic->isReloading();
    const bool empty = m_rows->rowCount() == 0 && !loading;
    m_list->setVisible(!empty);
    m_nothing->setVisible(empty);
    if (m_input->text().trimmed().isEmpty())
        m_nothing->setTexts(tr("No recent documents"), tr("Documents that you open will be listed here."));
    else
        m_nothing->setTexts(
            tr("Nothing found"), tr("No recent document has these words in its name or folder."));
    if (!m_list->currentIndex().isValid())
        chooseFirst();
    else if (m_list->selectedCount() == 0) // others took the chosen one away; what Enter opens is to be seen
        m_list->setCurrentIndex(m_list->currentIndex());
}

void RecentPicker::checkPresence(const QModelIndexList &shown)
{
    QModelIndexList rows;
    for (const QModelIndex &row : shown)
        rows << m_rows->mapToSource(row);
    m_logic->checkPresence(rows);
}

bool RecentPicker::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_input && event->type() == QEvent::KeyPress && handleKey(static_cast<QKeyEvent *>(event)))
        return true;
    // The mouse means the field, but the Menu key the row that is chosen.
    if (watched == m_input && event->type() == QEvent::ContextMenu && chosen().isValid()
        && static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard)
        return QCoreApplication::sendEvent(m_list, event);
    return QWidget::eventFilter(watched, event);
}

bool RecentPicker::handleKey(QKeyEvent *event)
{
    if (event->modifiers() & Qt::AltModifier)
        return false; // the window's
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(m_list, event);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (event->modifiers() & Qt::ControlModifier)
            revealRow(chosen());
        else
            openRow(chosen());
        return true;
    default:
        return false;
    }
}

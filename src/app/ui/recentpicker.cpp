#include "app/ui/recentpicker.h"

#include "kfileiconprovider.h"
#include "klitestyle.h"
#include "recentfile/recentfilelogic.h"
#include "recentfile/recentfilemodel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace {

/// A row with its file-type icon; files that are gone look disabled.
class PickerDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return KLiteStyle::dpiScaledSize({120, 32});
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->icon = KFileIconProvider::instance()->icon(option->text);
        option->decorationSize = KLiteStyle::dpiScaledSize({20, 20});
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->textElideMode = Qt::ElideMiddle;
        const auto presence = index.data(ZelBoxRecentFileModel::PresenceRole).toInt();
        option->state.setFlag(QStyle::State_Enabled, presence != int(RecentFileInfo::Presence::Missing));
    }
};

} // namespace

RecentPicker::RecentPicker(QWidget *parent)
    : QWidget(parent),
      m_model(new ZelBoxRecentFileModel(this)),
      m_logic(new KRecentFileLogic(this)),
      m_filter(new QSortFilterProxyModel(this)),
      m_input(new QLineEdit(this)),
      m_list(new QListView(this)),
      m_nothing(new QLabel(this))
{
    m_logic->setModel(m_model);
    m_filter->setSourceModel(m_model);
    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_input->setPlaceholderText(tr("Search recent documents"));
    m_input->setAccessibleName(tr("Search recent documents"));
    m_input->setClearButtonEnabled(true);
    m_input->installEventFilter(this);
    m_list->setAccessibleName(tr("Recent documents"));
    m_list->setModel(m_filter);
    m_list->setItemDelegate(new PickerDelegate(m_list));
    m_list->setUniformItemSizes(true);
    m_list->setFrameShape(QFrame::NoFrame);
    m_nothing->setAlignment(Qt::AlignCenter);
    m_nothing->setWordWrap(true);
    m_nothing->setForegroundRole(QPalette::PlaceholderText);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_input);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_nothing, 1);

    connect(m_input, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_filter->setFilterFixedString(text);
        m_list->setCurrentIndex(m_filter->index(0, 0));
        updateState();
    });
    connect(m_input, &QLineEdit::returnPressed, this, &RecentPicker::openCurrent);
    connect(m_list, &QListView::activated, this, &RecentPicker::openCurrent);
    connect(m_model, &ZelBoxRecentFileModel::rowCountChanged, this, &RecentPicker::updateState);
    connect(m_logic, &KRecentFileLogic::openFailed, this, [this] {
        m_nothing->setText(tr("This document cannot be opened."));
        m_nothing->show();
    });
    connect(KDocumentOpener::instance(), &KDocumentOpener::opened, this,
        [this](const QString &path, KDocumentOpener::Outcome outcome) {
            if (outcome == KDocumentOpener::Outcome::Opened && path == m_opening)
                Q_EMIT documentOpened();
        });
    updateState();
}

RecentPicker::~RecentPicker() = default;

void RecentPicker::focusInput()
{
    m_input->setFocus(Qt::OtherFocusReason);
    m_input->selectAll();
}

void RecentPicker::startLoading()
{
    m_logic->onWindowFirstShown();
}

void RecentPicker::openCurrent()
{
    const QModelIndex chosen =
        m_list->currentIndex().isValid() ? m_list->currentIndex() : m_filter->index(0, 0);
    if (!chosen.isValid())
        return;
    updateState();
    m_opening = chosen.data(ZelBoxRecentFileModel::PathRole).toString();
    m_logic->open(m_filter->mapToSource(chosen));
}

void RecentPicker::updateState()
{
    const bool empty = m_filter->rowCount() == 0;
    m_list->setVisible(!empty);
    m_nothing->setVisible(empty);
    m_nothing->setText(m_input->text().isEmpty() ? tr("Documents that you open will be listed here.")
                                                 : tr("No recent document has this name."));
}

bool RecentPicker::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_input && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(m_list, event);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

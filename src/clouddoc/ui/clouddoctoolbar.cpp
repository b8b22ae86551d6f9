#include "clouddoc/ui/clouddoctoolbar.h"

#include "clouddoc/ui/cloudactiontable.h"
#include "clouddoc/ui/cloudsortmenu.h"
#include "clouddoc/ui/transferbutton.h"
#include "klitestyle.h"
#include "klook.h"
#include "lists/ui/listactions.h"
#include "widgets/contentcolumn.h"
#include "widgets/svgicon.h"

#include <QAction>
#include <QHBoxLayout>
#include <QPushButton>

namespace look = zel::look;

namespace {

constexpr int RoomForText = 560;    // of the upload button
constexpr int RoomForHistory = 440; // the buttons that are used least

QMargins ownMargins()
{
    return KLiteStyle::dpiScaledMargins({14, 14, look::SpaceL, 8});
}

QString lineIcon(const char *name)
{
    return QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(name));
}

} // namespace

CloudDocToolBar::CloudDocToolBar(const ListActions *actions, QWidget *parent)
    : QWidget(parent),
      m_crumbs(new BreadcrumbBar(this)),
      m_upload(new QPushButton(this)),
      m_uploadIcon(new IconButton(lineIcon("upload"), tr("Upload"), this)),
      m_sort(new IconButton(lineIcon("sort"), tr("Sort"), this)),
      m_transfers(new TransferButton(this)),
      m_uploadMenu(new QMenu(this)),
      m_sortMenu(new CloudSortMenu(this))
{
    const auto action = [actions](CloudCommand command) { return actions->action(int(command)); };
    m_uploadMenu->addAction(action(CloudCommand::UploadFiles));
    m_uploadMenu->addAction(action(CloudCommand::UploadFolder));
    m_upload->setText(tr("Upload"));
    m_upload->setAccessibleDescription(tr("Opens a menu"));
    m_upload->setToolTip(action(CloudCommand::UploadFiles)->toolTip());
    m_uploadIcon->setToolTip(m_upload->toolTip());
    m_upload->setIcon(zel::tintedIcon(lineIcon("upload")));
    auto *layout = new QHBoxLayout(this);
    layout->setSpacing(KLiteStyle::dpiScaled(2));
    QVector<QWidget *> order{buttonFor(action(CloudCommand::Back)),
        m_forward = buttonFor(action(CloudCommand::Forward)), m_up = buttonFor(action(CloudCommand::Up)),
        m_crumbs, m_upload, m_uploadIcon, buttonFor(action(CloudCommand::NewFolder)), m_sort, m_transfers};
    for (QWidget *widget : std::as_const(order))
        layout->addWidget(widget, widget == m_crumbs ? 1 : 0);
    layout->insertSpacing(order.indexOf(m_uploadIcon) + 1, KLiteStyle::dpiScaled(4));
    order.removeOne(m_crumbs);
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));
    m_crumbs->setTabPredecessor(m_up);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.15);
    m_crumbs->setFont(large);

    connect(m_upload, &QAbstractButton::clicked, this, [this] { popUpUploadMenu(m_upload); });
    connect(m_uploadIcon, &QAbstractButton::clicked, this, [this] { popUpUploadMenu(m_uploadIcon); });
    connect(m_sort, &QAbstractButton::clicked, this, [this] {
        const QPoint below = m_sort->mapToGlobal(QPoint(m_sort->width(), m_sort->height()));
        m_sortMenu->popup(below - QPoint(m_sortMenu->sizeHint().width(), 0));
    });
    connect(m_sortMenu, &CloudSortMenu::sortChosen, this, &CloudDocToolBar::sortChosen);
    QAction *upload = action(CloudCommand::UploadFiles);
    connect(upload, &QAction::changed, this, [this, upload] {
        m_upload->setEnabled(upload->isEnabled());
        m_uploadIcon->setEnabled(upload->isEnabled());
    });
    adapt();
}

IconButton *CloudDocToolBar::buttonFor(QAction *action)
{
    auto *button = new IconButton(action->property("zelIcon").toString(), {}, this);
    button->setName(action->text());
    button->setToolTip(action->toolTip());
    const auto follow = [button, action] { button->setEnabled(action->isEnabled()); };
    connect(action, &QAction::changed, button, follow);
    connect(button, &QAbstractButton::clicked, action, &QAction::trigger);
    follow();
    return button;
}

void CloudDocToolBar::popUpUploadMenu(QWidget *below)
{
    m_uploadMenu->popup(below->mapToGlobal(QPoint(0, below->height() + KLiteStyle::dpiScaled(2))));
}

void CloudDocToolBar::setSort(const zel::ListSort &sort)
{
    m_sortMenu->setSort(sort);
}

void CloudDocToolBar::setSortShown(bool shown)
{
    m_sort->setVisible(shown);
}

// Else the layout would ask for the room of what is shown now, and never let it become less.
QSize CloudDocToolBar::minimumSizeHint() const
{
    const QMargins margins = ownMargins();
    const int buttons = 5 * (m_sort->sizeHint().width() + layout()->spacing());
    return {margins.left() + buttons + m_crumbs->minimumSizeHint().width() + margins.right(),
        QWidget::minimumSizeHint().height()};
}

// Not by zel::keepInContentColumn(), which would keep the page as wide as all buttons need.
void CloudDocToolBar::adapt()
{
    const int inset = zel::contentInset(width());
    layout()->setContentsMargins(ownMargins() + QMargins(inset, 0, inset, 0));
    const bool text = width() >= KLiteStyle::dpiScaled(RoomForText);
    const bool history = width() >= KLiteStyle::dpiScaled(RoomForHistory);
    m_upload->setVisible(text);
    m_uploadIcon->setVisible(!text);
    m_forward->setVisible(history);
    m_up->setVisible(history);
}

void CloudDocToolBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    adapt();
}

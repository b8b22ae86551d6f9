#include "clouddoc/ui/breadcrumbbar.h"

#include "clouddoc/ui/crumbbutton.h"
#include "klitestyle.h"
#include "kskin.h"
#include "widgets/nametext.h"
#include "widgets/rowpaint.h"
#include "widgets/svgicon.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <algorithm>

namespace {
constexpr int SeparatorSize = 12;
constexpr int LeastCrumb = 40;
constexpr int LongestMenuName = 60; // characters
} // namespace

BreadcrumbBar::BreadcrumbBar(QWidget *parent)
    : QWidget(parent), m_more(new CrumbButton({}, QStringLiteral("…"), this)), m_menu(new QMenu(this))
{
    setAccessibleName(tr("Path"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_more->setAccessibleName(tr("More folders of the path"));
    m_more->setToolTip(m_more->accessibleName());
    m_more->hide();
    connect(m_more, &QAbstractButton::clicked, this,
        [this] { m_menu->popup(m_more->mapToGlobal(QPoint(0, m_more->height()))); });
}

void BreadcrumbBar::setCrumbs(const QVector<Crumb> &crumbs)
{
    if (m_crumbs == crumbs)
        return;
    m_crumbs = crumbs;
    rebuild();
}

void BreadcrumbBar::rebuild()
{
    const bool focused = std::any_of(
        m_buttons.cbegin(), m_buttons.cend(), [](const CrumbButton *button) { return button->hasFocus(); });
    for (CrumbButton *button : std::as_const(m_buttons)) {
        button->hide();
        button->deleteLater(); // it may be the one whose click brought us here
    }
    m_buttons.clear();
    for (const Crumb &crumb : std::as_const(m_crumbs)) {
        auto *button = new CrumbButton(crumb.id, crumb.name, this);
        button->setLast(m_buttons.size() == m_crumbs.size() - 1);
        connect(button, &QAbstractButton::clicked, this, [this, id = crumb.id] { Q_EMIT crumbChosen(id); });
        connect(button, &CrumbButton::itemsDropped, this, &BreadcrumbBar::itemsDropped);
        connect(button, &CrumbButton::filesDropped, this, &BreadcrumbBar::filesDropped);
        m_buttons << button;
    }
    arrange();
    if (focused && !m_buttons.isEmpty())
        m_buttons.constLast()->setFocus(Qt::OtherFocusReason);
}

void BreadcrumbBar::arrange()
{
    QVector<int> widths;
    for (const CrumbButton *button : std::as_const(m_buttons))
        widths << button->sizeHint().width();
    const int separator = KLiteStyle::dpiScaled(SeparatorSize);
    m_fit = CrumbFit::of(
        widths, width(), {separator, m_more->sizeHint().width(), KLiteStyle::dpiScaled(LeastCrumb)});
    const int count = m_buttons.size();
    const bool collapses = m_fit.collapses(count);
    int x = 0;
    const auto place = [&](CrumbButton *button, int width) {
        const int height = button->sizeHint().height();
        button->setGeometry(x, (this->height() - height) / 2, width, height);
        button->show();
        x += width + separator;
    };
    for (int i = 0; i < count; ++i) {
        if (i == m_fit.leading && collapses)
            place(m_more, m_more->sizeHint().width());
        const bool fits = i < m_fit.leading || i >= count - m_fit.trailing;
        if (fits)
            place(m_buttons.at(i), i == count - 1 ? m_fit.lastWidth : widths.at(i));
        m_buttons.at(i)->setVisible(fits);
        m_buttons.at(i)->setToolTip(fits && m_buttons.at(i)->width() < widths.at(i)
                ? zel::plainToolTip({zel::plainLine(m_crumbs.at(i).name)})
                : QString());
    }
    m_more->setVisible(collapses);
    fillMenu();
    QWidget *before = m_predecessor;
    const QVector<QWidget *> order = shown();
    for (QWidget *step : order) {
        if (before)
            setTabOrder(before, step);
        before = step;
    }
    update();
}

void BreadcrumbBar::setTabPredecessor(QWidget *widget)
{
    m_predecessor = widget;
    arrange();
}

void BreadcrumbBar::fillMenu()
{
    m_menu->clear();
    const int end = m_crumbs.size() - m_fit.trailing;
    for (int i = m_fit.leading; i < end; ++i) {
        QString name = zel::plainLine(m_crumbs.at(i).name);
        if (name.size() > LongestMenuName)
            name = name.left(LongestMenuName) + QChar(0x2026);
        name.replace(QLatin1Char('&'), QStringLiteral("&&"));
        const QIcon icon = zel::tintedIcon(QStringLiteral(":/icons_svg/folder.svg"));
        m_menu->addAction(icon, name, this, [this, id = m_crumbs.at(i).id] { Q_EMIT crumbChosen(id); });
    }
}

QVector<QWidget *> BreadcrumbBar::shown() const
{
    QVector<QWidget *> widgets;
    for (int i = 0; i < m_buttons.size(); ++i) {
        if (i == m_fit.leading && m_fit.collapses(m_buttons.size()))
            widgets << m_more;
        if (!m_buttons.at(i)->isHidden())
            widgets << m_buttons.at(i);
    }
    return widgets;
}

void BreadcrumbBar::moveFocus(int step)
{
    const QVector<QWidget *> widgets = shown();
    const int now = widgets.indexOf(focusWidget());
    const int next = now + step;
    if (now >= 0 && next >= 0 && next < widgets.size())
        widgets.at(next)->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

// Without a modifier: with Alt the same keys go through the folders that were shown.
void BreadcrumbBar::keyPressEvent(QKeyEvent *event)
{
    const bool left = event->key() == Qt::Key_Left;
    if ((!left && event->key() != Qt::Key_Right) || event->modifiers() != Qt::NoModifier)
        return QWidget::keyPressEvent(event);
    moveFocus(left == isRightToLeft() ? 1 : -1);
}

void BreadcrumbBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void BreadcrumbBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        for (CrumbButton *button : std::as_const(m_buttons))
            button->setLast(button == m_buttons.constLast());
        arrange();
    }
}

QSize BreadcrumbBar::sizeHint() const
{
    return {KLiteStyle::dpiScaled(400), m_more->sizeHint().height()};
}

QSize BreadcrumbBar::minimumSizeHint() const
{
    return {KLiteStyle::dpiScaled(LeastCrumb * 3 / 2), m_more->sizeHint().height()};
}

void BreadcrumbBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const int side = KLiteStyle::dpiScaled(SeparatorSize);
    const QVector<QWidget *> widgets = shown();
    for (int i = 1; i < widgets.size(); ++i) {
        const QRect glyph(widgets.at(i)->x() - side, (height() - side) / 2, side, side);
        zel::paintGlyph(&painter, glyph, QStringLiteral(":/icons_svg/crumb.svg"),
            KSkin::color(KSkin::Color::TextSecondary));
    }
}

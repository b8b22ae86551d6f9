#include "settings/ui/shortcutspage.h"

#include "klitestyle.h"
#include "klook.h"
#include "settings/ui/confirmdialog.h"
#include "settings/ui/keyfield.h"
#include "settings/ui/settingscard.h"
#include "widgets/iconbutton.h"
#include "widgets/noticebar.h"
#include "widgets/shortcuts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using zel::ShortcutGroup;
using zel::ShortcutInfo;
using zel::Shortcuts;

namespace {

QString headingOf(const ShortcutInfo &info)
{
    switch (info.group) {
    case ShortcutGroup::MainWindow:
        return ShortcutsPage::tr("Main window");
    case ShortcutGroup::Pages:
        return ShortcutsPage::tr("Pages");
    case ShortcutGroup::Lists:
        return ShortcutsPage::tr("Lists");
    case ShortcutGroup::ListPage:
        return info.heading;
    case ShortcutGroup::MiniWindow:
        return ShortcutsPage::tr("Mini window");
    }
    return {};
}

QString native(const QKeySequence &keys)
{
    return keys.toString(QKeySequence::NativeText);
}

ShortcutInfo infoOf(const QString &id)
{
    const QVector<ShortcutInfo> all = Shortcuts::instance()->list();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const ShortcutInfo &info) { return info.id == id; });
    return found == all.end() ? ShortcutInfo() : *found;
}

} // namespace

ShortcutsPage::ShortcutsPage(QWidget *parent)
    : SettingsPage(tr("Shortcuts"), parent), m_resetAll(new QPushButton(tr("Reset All…"), this))
{
    m_resetAll->setAutoDefault(false);
    addRows();
    auto *foot = new QWidget(this);
    auto *layout = new QHBoxLayout(foot);
    layout->setContentsMargins(0, KLiteStyle::dpiScaled(zel::look::SpaceM), 0, 0);
    layout->addStretch(1);
    layout->addWidget(m_resetAll);
    addWidget(foot);
    connect(m_resetAll, &QPushButton::clicked, this, &ShortcutsPage::askToResetAll);
    connect(Shortcuts::instance(), &Shortcuts::keysChanged, this, &ShortcutsPage::showKeys);
    connect(notice(), &NoticeBar::actionTriggered, this, [this] {
        Shortcuts *shortcuts = Shortcuts::instance();
        shortcuts->setKeys(shortcuts->check(m_wantedId, m_wantedKeys).holder, {});
        choose(m_wantedId, m_wantedKeys);
    });
}

void ShortcutsPage::addRows()
{
    SettingsCard *card = nullptr;
    QString heading;
    for (const ShortcutInfo &info : Shortcuts::instance()->list()) {
        if (!card || heading != headingOf(info)) {
            heading = headingOf(info);
            card = addCard(heading);
        }
        QWidget *control = info.changeable ? changeable(info.id, info.text) : fixed(info.text, info.keys);
        card->addRow(info.text, QString(), control);
        if (info.changeable)
            showKeys(info.id);
    }
}

QWidget *ShortcutsPage::changeable(const QString &id, const QString &text)
{
    auto *box = new QWidget(this);
    auto *reset = new IconButton(
        QStringLiteral(":/icons_svg/retry.svg"), tr("Reset “%1” to its standard keys").arg(text), box);
    QSizePolicy policy = reset->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // the keys stand in one column
    reset->setSizePolicy(policy);
    auto *field = new KeyField(box);
    field->setObjectName(id);
    field->setAccessibleName(text);
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(KLiteStyle::dpiScaled(zel::look::SpaceXS));
    layout->addWidget(reset);
    layout->addWidget(field);
    connect(field, &KeyField::keysChosen, this, [this, id](const QKeySequence &keys) { choose(id, keys); });
    connect(field, &KeyField::waitBegun, notice(), &QWidget::hide);
    connect(reset, &QAbstractButton::clicked, this, [this, id] {
        notice()->hide();
        Shortcuts::instance()->reset(id);
        m_rows.value(id).field->setFocus();
    });
    m_rows.insert(id, {field, reset});
    return box;
}

QWidget *ShortcutsPage::fixed(const QString &text, const QKeySequence &keys)
{
    auto *label = new QLabel(native(keys), this);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setAccessibleName(tr("%1: %2").arg(text, native(keys)));
    return label;
}

void ShortcutsPage::choose(const QString &id, const QKeySequence &keys)
{
    if (Shortcuts::instance()->setKeys(id, keys))
        notice()->hide();
    else
        refuse(id, keys);
}

void ShortcutsPage::refuse(const QString &id, const QKeySequence &keys)
{
    const Shortcuts::Verdict verdict = Shortcuts::instance()->check(id, keys);
    if (verdict.refusal == Shortcuts::Refusal::Typing) {
        notice()->showText(tr("%1 is needed for typing or for moving about.").arg(native(keys)));
        return;
    }
    const ShortcutInfo holder = infoOf(verdict.holder);
    const QString text = tr("%1 already stands for “%2”.").arg(native(keys), holder.text);
    if (!holder.changeable) {
        notice()->showText(text);
        return;
    }
    m_wantedId = id;
    m_wantedKeys = keys;
    notice()->showAction(text, tr("Use Here"), NoticeBar::Tone::Problem, NoticeBar::Stay);
}

void ShortcutsPage::showKeys(const QString &id)
{
    if (!m_rows.contains(id))
        return;
    const Row row = m_rows.value(id);
    row.field->setKeys(Shortcuts::instance()->keys(id));
    row.reset->setVisible(Shortcuts::instance()->isChanged(id));
    bool changed = false;
    for (auto it = m_rows.cbegin(); it != m_rows.cend(); ++it)
        changed |= Shortcuts::instance()->isChanged(it.key());
    m_resetAll->setEnabled(changed);
}

void ShortcutsPage::askToResetAll()
{
    auto *dialog = new ConfirmDialog(
        tr("Shortcuts"), tr("Reset all shortcuts to the standard keys?"), tr("Reset All"), window());
    dialog->addText(tr("Your own keys are forgotten."));
    connect(dialog, &QDialog::accepted, Shortcuts::instance(), &Shortcuts::resetAll);
    dialog->open();
}

#include "settings/ui/storagerow.h"

#include "base/paths.h"
#include "base/sizetext.h"
#include "klitestyle.h"
#include "klook.h"
#include "widgets/iconbutton.h"
#include "widgets/nametext.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace look = zel::look;
using zel::settings::StorageKind;

namespace {

QString purpose(StorageKind kind)
{
    switch (kind) {
    case StorageKind::RecentHistory:
        return StorageRow::tr("Which documents you used, when, and what you pinned.");
    case StorageKind::CloudDrive:
        return StorageRow::tr(
            "Your cloud documents and their recycle bin. Manage them on the page of cloud documents.");
    case StorageKind::CloudDatabase:
        return StorageRow::tr("Messages, transfers and the list of documents of your devices.");
    case StorageKind::Settings:
        return StorageRow::tr("What you choose in this window, and the places of windows.");
    case StorageKind::Logs:
        return StorageRow::tr("Notes for finding errors. No names of documents.");
    case StorageKind::Telemetry:
        return StorageRow::tr("Usage events, while they are switched on.");
    case StorageKind::Thumbnails:
        return StorageRow::tr(
            "Small pictures of documents. They belong to the desktop; ZEL Box only reads them.");
    }
    return {};
}

bool isClearable(StorageKind kind)
{
    return kind == StorageKind::RecentHistory || kind == StorageKind::Logs || kind == StorageKind::Telemetry;
}

} // namespace

QString StorageRow::title(StorageKind kind)
{
    switch (kind) {
    case StorageKind::RecentHistory:
        return tr("Recent documents");
    case StorageKind::CloudDrive:
        return tr("Cloud documents");
    case StorageKind::CloudDatabase:
        return tr("Cloud database");
    case StorageKind::Settings:
        return tr("Settings");
    case StorageKind::Logs:
        return tr("Logs");
    case StorageKind::Telemetry:
        return tr("Usage events");
    case StorageKind::Thumbnails:
        return tr("Thumbnails");
    }
    return {};
}

StorageRow::StorageRow(const zel::settings::StoragePlace &place, QWidget *parent)
    : QWidget(parent), m_place(place), m_path(new QLabel(this)), m_size(new QLabel(tr("Counting…"), this))
{
    const QString name = title(place.kind);
    auto *heading = new QLabel(name, this);
    heading->setWordWrap(true);
    heading->setMinimumWidth(1);
    auto *text = new QLabel(purpose(place.kind), this);
    text->setWordWrap(true);
    text->setMinimumWidth(1);
    text->setForegroundRole(QPalette::PlaceholderText);
    m_path->setForegroundRole(QPalette::PlaceholderText);
    m_path->setTextFormat(Qt::PlainText);
    m_path->setMinimumWidth(1);
    m_path->setToolTip(zel::plainToolTip({place.path()}));
    m_path->setAccessibleName(place.path());
    auto *show = new IconButton(
        QStringLiteral(":/icons_svg/folder_open.svg"), tr("Show folder of “%1”").arg(name), this);
    connect(show, &QAbstractButton::clicked, this, &StorageRow::showFolderRequested);

    auto *top = new QHBoxLayout;
    top->setSpacing(KLiteStyle::dpiScaled(look::SpaceS));
    top->addWidget(heading, 1);
    top->addWidget(m_size);
    auto *bottom = new QHBoxLayout;
    bottom->setSpacing(KLiteStyle::dpiScaled(look::SpaceS));
    bottom->addWidget(m_path, 1);
    if (isClearable(place.kind)) {
        m_clear = new QPushButton(tr("Clear…"), this);
        m_clear->setAutoDefault(false);
        m_clear->setAccessibleName(tr("Clear “%1”…").arg(name));
        connect(m_clear, &QPushButton::clicked, this, &StorageRow::clearRequested);
        bottom->addWidget(m_clear);
        setTabOrder(m_clear, show); // which was made first
    }
    bottom->addWidget(show);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({look::SpaceL, 10, look::SpaceM, 8}));
    layout->setSpacing(KLiteStyle::dpiScaled(2));
    layout->addLayout(top);
    layout->addWidget(text);
    layout->addLayout(bottom);
}

void StorageRow::setUse(const zel::settings::StorageUse &use)
{
    m_size->setText(use.bytes > 0 ? zel::sizeText(use.bytes) : tr("Nothing"));
    if (m_clear)
        m_clear->setEnabled(use.exists);
}

void StorageRow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    elidePath();
}

void StorageRow::elidePath()
{
    m_path->setText(m_path->fontMetrics().elidedText(
        zel::paths::shown(m_place.path()), Qt::ElideMiddle, m_path->width()));
}

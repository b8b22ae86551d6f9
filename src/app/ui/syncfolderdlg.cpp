#include "app/ui/syncfolderdlg.h"

#include "kdocumentopener.h"
#include "klitestyle.h"
#include "widgets/nametext.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

SyncFolderDlg::SyncFolderDlg(QWidget *parent)
    : BoxDialog(tr("Synchronise folder"), tr("Synchronise a folder"), parent),
      m_path(addText(QString())),
      m_problem(addText(QString())),
      m_open(buttons()->addButton(tr("Open Folder"), QDialogButtonBox::ActionRole))
{
    m_path->setAccessibleName(tr("Folder path"));
    // Paths are plain text, whatever they hold.
    m_path->setTextFormat(Qt::PlainText);
    m_path->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_problem->setAccessibleName(tr("Problem"));
    addText(tr("No cloud account is connected, so this folder stays on this computer only."));
    buttons()->addButton(tr("Close"), QDialogButtonBox::RejectRole)->setDefault(true);
    m_open->setAutoDefault(false); // Enter closes
    connect(m_open, &QPushButton::clicked, this, [this] {
        m_problem->clear();
        KDocumentOpener::instance()->open(m_folder);
    });
    connect(KDocumentOpener::instance(), &KDocumentOpener::opened, this,
        [this](const QString &path, KDocumentOpener::Outcome outcome) {
            if (path == m_folder && outcome != KDocumentOpener::Outcome::Opened)
                m_problem->setText(tr("This folder cannot be opened."));
        });
    setParameter(QString());
}

void SyncFolderDlg::setParameter(const QString &folder)
{
    m_folder = folder;
    m_open->setEnabled(!folder.isEmpty());
    const QString shown = folder.isEmpty() ? tr("No folder was named.") : folder;
    m_path->setText(fontMetrics().elidedText(shown, Qt::ElideMiddle, KLiteStyle::dpiScaled(340)));
    m_path->setToolTip(zel::plainToolTip({folder}));
}

#include "clouddoc/clouddoctexts.h"

#include "base/clock.h"
#include "base/sizetext.h"
#include "base/timetext.h"

#include <QCoreApplication>
#include <QDateTime>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CloudDocModel)
};

QString transferText(const CloudDocument &document)
{
    switch (document.transfer) {
    case CloudDocument::Transfer::None:
        return {};
    case CloudDocument::Transfer::Waiting:
        return Texts::tr("waiting");
    case CloudDocument::Transfer::Uploading:
        return Texts::tr("uploading, %1%").arg(document.progress);
    case CloudDocument::Transfer::Downloading:
        return Texts::tr("downloading, %1%").arg(document.progress);
    case CloudDocument::Transfer::Failed:
        return Texts::tr("transfer failed");
    }
    return {};
}

} // namespace

QString zel::clouddoc::spokenText(const CloudDocument &document)
{
    QStringList parts{document.folder ? Texts::tr("folder") : Texts::tr("file")};
    if (!document.folder)
        parts << zel::sizeText(document.size);
    if (document.modifiedAt > 0) {
        const QDateTime time = QDateTime::fromMSecsSinceEpoch(document.modifiedAt);
        parts << Texts::tr("modified %1").arg(zel::timeText(time, zel::now()));
    }
    parts << transferText(document);
    parts.removeAll({});
    return parts.join(QStringLiteral(", "));
}

#include "recentfile/documentkind.h"

#include "kfileclass.h"

#include <QCoreApplication>
#include <iterator>

namespace zel::recent {

namespace {

struct KindTexts
{
    Q_DECLARE_TR_FUNCTIONS(DocumentKind)
};

struct KindOfClass
{
    QLatin1String fileClass;
    DocumentKind kind;
};

constexpr KindOfClass Kinds[] = {
    {QLatin1String("document"), DocumentKind::Text},
    {QLatin1String("text"), DocumentKind::Text},
    {QLatin1String("book"), DocumentKind::Text},
    {QLatin1String("sheet"), DocumentKind::Sheet},
    {QLatin1String("slides"), DocumentKind::Slides},
    {QLatin1String("pdf"), DocumentKind::Pdf},
    {QLatin1String("picture"), DocumentKind::Picture},
    {QLatin1String("sound"), DocumentKind::Media},
    {QLatin1String("film"), DocumentKind::Media},
    {QLatin1String("archive"), DocumentKind::Archive},
};

} // namespace

DocumentKind documentKind(const QString &fileName)
{
    const QLatin1String fileClass = FileClassOf(fileName);
    const auto found = std::find_if(std::begin(Kinds), std::end(Kinds),
        [fileClass](const KindOfClass &row) { return row.fileClass == fileClass; });
    return found == std::end(Kinds) ? DocumentKind::Other : found->kind;
}

QString documentKindName(DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::Text:
        return KindTexts::tr("Documents");
    case DocumentKind::Sheet:
        return KindTexts::tr("Sheets");
    case DocumentKind::Slides:
        return KindTexts::tr("Slides");
    case DocumentKind::Pdf:
        return KindTexts::tr("PDF");
    case DocumentKind::Picture:
        return KindTexts::tr("Pictures");
    case DocumentKind::Media:
        return KindTexts::tr("Audio and video");
    case DocumentKind::Archive:
        return KindTexts::tr("Archives");
    case DocumentKind::Other:
        return KindTexts::tr("Other files");
    }
    return {};
}

} // namespace zel::recent

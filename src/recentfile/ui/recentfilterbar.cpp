#include "recentfile/ui/recentfilterbar.h"

using namespace zel::recent;

namespace {

struct ChipKinds
{
    DocumentKind named; ///< whose name the chip carries
    DocumentKinds kinds;
};

const ChipKinds Chips[] = {
    {DocumentKind::Text, DocumentKind::Text},
    {DocumentKind::Sheet, DocumentKind::Sheet},
    {DocumentKind::Slides, DocumentKind::Slides},
    {DocumentKind::Pdf, DocumentKind::Pdf},
    {DocumentKind::Picture, DocumentKind::Picture},
    {DocumentKind::Other, DocumentKind::Media | DocumentKind::Archive | DocumentKind::Other},
};

} // namespace

RecentFilterBar::RecentFilterBar(QWidget *parent) : FilterBar(tr("Kind of document"), parent)
{
    addChip(0, tr("All"));
    for (const ChipKinds &each : Chips)
        addChip(int(each.kinds), documentKindName(each.named));
}

DocumentKinds RecentFilterBar::kinds() const
{
    return DocumentKinds(chosen());
}

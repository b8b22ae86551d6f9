#include "lists/ui/listrow.h"

#include "widgets/nametext.h"

namespace {

int widthOf(const QFontMetrics &metrics, const QString &text)
{
    return text.isEmpty() ? 0 : metrics.horizontalAdvance(text) + 1;
}

void shorten(QString *text, const QFontMetrics &metrics, Qt::TextElideMode mode, int wish, int room)
{
    if (room < wish)
        *text = metrics.elidedText(*text, mode, room);
}

} // namespace

bool ListRow::isOneLine(const QRect &rect, const RowFonts &fonts) const
{
    return kind == Kind::Columns && RowCell::isWide(rect.width(), fonts.sizes, columns);
}

RowCell::Wishes ListRow::wishes(const RowFonts &fonts, const ListRowOption &option) const
{
    RowCell::Wishes wishes;
    wishes.name = widthOf(fonts.nameMetrics, name);
    wishes.badge = widthOf(fonts.smallMetrics, badge);
    wishes.place = widthOf(fonts.smallMetrics, place);
    wishes.detail = widthOf(fonts.smallMetrics, detail);
    wishes.state = widthOf(fonts.smallMetrics, state);
    wishes.time = widthOf(fonts.smallMetrics, time);
    wishes.nameGlyph = !nameGlyph.isEmpty();
    wishes.placeGlyph = !placeGlyph.isEmpty();
    wishes.progress = progress >= 0;
    wishes.barBelow = barBelow;
    wishes.buttons = option.buttons || buttonsStay ? buttons.size() : 0;
    wishes.buttonRoom = buttonRoom;
    return wishes;
}

RowCell ListRow::layout(const QRect &rect, const RowFonts &fonts, const RowCell::Wishes &wishes) const
{
    if (kind == Kind::Snippet)
        return RowCell::withSnippet(rect, fonts.sizes, wishes);
    return isOneLine(rect, fonts) ? RowCell::oneLine(rect, fonts.sizes, wishes, columns)
                                  : RowCell::twoLines(rect, fonts.sizes, wishes);
}

// Twice where a text is too long: what stands behind it follows what is left of it.
RowCell ListRow::fit(const ListRowOption &option, const RowFonts &fonts)
{
    const bool joined = kind == Kind::Columns && !isOneLine(option.rect, fonts);
    if (joined) {
        QStringList texts = columnTexts;
        texts.removeAll({});
        place = texts.join(QStringLiteral(" · "));
    }
    const RowCell::Wishes wanted = wishes(fonts, option);
    RowCell cell = layout(option.rect, fonts, wanted);
    const QString wholeName = name;
    const QString wholePlace = place;
    const bool nameCut = cell.name.width() < wanted.name;
    const bool placeCut = cell.place.width() < wanted.place && !cell.place.isNull();
    if (nameCut)
        name = zel::elidedName(name, fonts.nameMetrics, cell.name.width());
    if (placeCut)
        place = fonts.smallMetrics.elidedText(
            place, joined ? Qt::ElideRight : Qt::ElideMiddle, cell.place.width());
    shorten(&state, fonts.smallMetrics, Qt::ElideRight, wanted.state, cell.state.width());
    if (nameCut || placeCut)
        cell = layout(option.rect, fonts, wishes(fonts, option));
    if (kind == Kind::Snippet)
        snippet = snippet.fitted(fonts.smallMetrics, cell.snippet.width());
    if (!option.markedWords.isEmpty()) {
        const auto words = zel::WordFilter::ofWords(option.markedWords);
        nameMarks = zel::shownRanges(wholeName, name, words.ranges(wholeName));
        if (!joined)
            placeMarks = zel::shownRanges(wholePlace, place, words.ranges(wholePlace));
    }
    return cell;
}

// Paints rows of every kind, with marks and headings, into PNG files for people to look at; how to run it is
// in support/picturerun.h.
#include "lists/ui/columnheadings.h"
#include "lists/ui/listrow.h"
#include "support/picturerun.h"

namespace {

ListRow rowOf(ListRow::Kind kind, const char *name)
{
    ListRow row;
    row.kind = kind;
    row.fileName = row.name = QString::fromUtf8(name);
    row.place = "~/Documents/Reports/Year"_s;
    row.detail = "· 12 kB"_s;
    if (kind != ListRow::Kind::Columns)
        row.time = "yesterday 14:30"_s;
    row.columns = {RowColumn::Time, RowColumn::Size};
    row.columnTexts = QStringList{"yesterday 14:30"_s, "12 kB"_s};
    const QString text = "What the annual report says of the first quarter, in the words of those "
                         "who were there, and what it says of the second."_s;
    row.snippet = {
        text, {{text.indexOf(QLatin1String("report")), 6}, {text.indexOf(QLatin1String("first")), 5}}};
    row.buttons = {{0, ":/icons_svg/share.svg"_s}, {1, ":/icons_svg/more.svg"_s}};
    row.buttonRoom = 2;
    return row;
}

/// All rows of one kind, below headings.
class Sheet : public QWidget
{
public:
    Sheet(ListRow::Kind kind, int width) : m_kind(kind), m_headings(this)
    {
        m_headings.setName("Name"_s);
        m_headings.addColumn(RowColumn::Time, "Modified"_s);
        m_headings.addColumn(RowColumn::Size, "Size"_s);
        m_headings.setSort(
            {width > 500 ? zel::ListSort::Key::Size : zel::ListSort::Key::Name, Qt::AscendingOrder});
        m_headings.setVisible(kind == ListRow::Kind::Columns);
        setFixedSize(width, 440);
        m_headings.setGeometry(0, 0, width, m_headings.sizeHint().height());
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), KSkin::color(KSkin::Color::Surface));
        const RowFonts fonts(font());
        int top = m_headings.isHidden() ? 0 : m_headings.height();
        int number = 0;
        for (const char *name :
            {"Annual report of the first quarter, with all that was said about it (final).docx", "Report.odt",
                "Год отчёт 报告 report.pdf",
                "二零二四年第一季度财务报告及市场分析总结与二零二五年展望.pptx"}) {
            ListRow row = rowOf(m_kind, name);
            ListRowOption option;
            option.rect = QRect(0, top, width(), row.height(fonts.sizes));
            option.markedWords = QStringList{"report"_s, "报告"_s};
            option.state.setFlag(QStyle::State_Selected, number == 1);
            option.state.setFlag(QStyle::State_MouseOver, number == 2);
            option.buttons = number == 2;
            option.hovered = 0;
            if (number == 3) {
                row.state = "40%"_s;
                row.progress = m_kind == ListRow::Kind::Snippet ? -1 : 40;
                row.badge = "New"_s;
            }
            const RowCell cell = row.fit(option, fonts);
            row.paint(&painter, cell, fonts, option);
            top += option.rect.height();
            ++number;
        }
    }

private:
    ListRow::Kind m_kind;
    ColumnHeadings m_headings;
};

} // namespace

int main(int argc, char **argv)
{
    const PictureRun run(argc, argv);
    const std::pair<const char *, ListRow::Kind> kinds[] = {{"twolines", ListRow::Kind::TwoLines},
        {"columns", ListRow::Kind::Columns}, {"snippet", ListRow::Kind::Snippet}};
    for (const auto &[name, kind] : kinds) {
        for (const int width : {720, 360})
            run.save("%1-%2"_s.arg(QLatin1String(name)).arg(width), Sheet(kind, width).grab());
    }
    return 0;
}

#include "lists/ui/columnheading.h"
#include "lists/ui/columnheadings.h"
#include "lists/ui/rowdelegate.h"
#include "skinstate.h"
#include "support/contrast.h"
#include "widgets/nametext.h"

using zel::MarkedText;

Q_DECLARE_METATYPE(ListRow::Kind)

class TestRows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cells_data()
    {
        // wishes: name, badge, place, detail, state, time; glyph, mark, bar, buttons
        const auto row =
            zeltest::table<ListRow::Kind, int, QVector<int>, QString>("kind", "width", "wishes", "expected");
        using Kind = ListRow::Kind;
        row("all fits", Kind::TwoLines, 500, {120, 30, 80, 40, 0, 60, 1, 1, 0, 0},
            "name 60-180, glyph 185-197, badge 202-242, mark 60-72, place 77-157, detail 160-200, time "
            "420-480");
        row("narrow: time goes first", Kind::TwoLines, 220, {900, 30, 900, 40, 0, 60, 1, 0, 0, 0},
            "name 60-138, glyph 143-155, badge 160-200, place 60-157, detail 160-200");
        row("narrower: then badge and detail", Kind::TwoLines, 160, {900, 30, 900, 40, 0, 60, 1, 0, 0, 0},
            "name 60-123, glyph 128-140, place 60-140");
        row("nothing fits", Kind::TwoLines, 40, {900, 30, 900, 40, 0, 60, 1, 1, 0, 0}, "");
        row("buttons in place of the time", Kind::TwoLines, 500, {900, 0, 80, 0, 0, 40, 0, 0, 0, 2},
            "name 60-414, place 60-140, button 429-457, button 457-485");
        row("room for the time alone", Kind::TwoLines, 500, {900, 0, 80, 0, 0, 40, 0, 0, 0, 0},
            "name 60-430, place 60-140, time 440-480");
        row("what goes on", Kind::TwoLines, 500, {90, 0, 80, 0, 40, 0, 0, 0, 1, 0},
            "name 60-150, state 60-100, bar 105-160");
        row("columns", Kind::Columns, 500, {900, 0, 80, 0, 0, 0, 1, 0, 0, 0},
            "name 60-283, glyph 288-300, column 310-410, column 420-480");
        row("columns and what goes on", Kind::Columns, 500, {900, 0, 80, 0, 40, 0, 0, 0, 1, 0},
            "name 60-190, state 200-240, bar 245-300, column 310-410, column 420-480");
        row("columns below buttons", Kind::Columns, 500, {90, 0, 80, 0, 0, 0, 0, 0, 0, 2},
            "name 60-150, column 310-410, button 429-457, button 457-485");
        row("too narrow for columns", Kind::Columns, 400, {90, 0, 80, 0, 0, 0, 0, 0, 0, 0},
            "name 60-150, place 60-140");
        row("snippet", Kind::Snippet, 400, {90, 0, 80, 40, 0, 60, 0, 0, 0, 0},
            "name 60-150, snippet 60-310, place 60-140, detail 143-183, time 320-380");
    }
    void cells()
    {
        const auto [kind, width, wishes] = zeltest::row<ListRow::Kind, int, QVector<int>>();
        RowCell::Wishes wished{wishes[0], wishes[1], wishes[2], wishes[3], wishes[4], wishes[5]};
        wished.nameGlyph = wishes[6];
        wished.placeGlyph = wishes[7];
        wished.progress = wishes[8];
        wished.buttons = wishes[9];
        QTEST(printed(cellOf(kind, {0, 520, width, 60}, roundMetrics(), wished)), "expected");
    }

    // With the real measures, whatever the width.
    void nothingOverlaps()
    {
        const RowFonts fonts{QFont()};
        using Kind = ListRow::Kind;
        for (const Kind kind : {Kind::TwoLines, Kind::Columns, Kind::Snippet}) {
            for (const int width : {0, 120, 320, 440, 900, 2000}) {
                for (const int what : {0, 1, 2, 3}) {
                    RowCell::Wishes wishes{
                        5000, 40, 5000, 40, what & 1 ? 4000 : 0, 60, true, true, bool(what & 1)};
                    wishes.barBelow = what & 2;
                    wishes.buttons = what & 2 ? 2 : 0;
                    const QRect row(0, 100, width,
                        kind == Kind::Snippet ? fonts.sizes.snippetHeight : fonts.sizes.rowHeight);
                    const RowCell cell = cellOf(kind, row, fonts.sizes, wishes);
                    if (width < 320)
                        continue; // it must not crash, no more
                    const auto places = placesOf(cell);
                    for (const Place &place : places) {
                        QVERIFY2(cell.ground.contains(place.second), qPrintable(printed(cell)));
                        for (const Place &other : places)
                            QVERIFY2(&place == &other || !place.second.intersects(other.second),
                                qPrintable("%1 %2 %3"_s.arg(width).arg(
                                    QLatin1String(place.first), QLatin1String(other.first))));
                    }
                }
            }
        }
    }

    void delegate()
    {
        QStandardItemModel model;
        model.appendRow(new QStandardItem(QString(300, QLatin1Char('i'))));
        TestDelegate rows;
        ListRowOption option;
        option.rect = QRect(0, 0, 500, 60);
        const QModelIndex index = model.index(0, 0);
        const RowCell resting = rows.cell(option, index);
        option.buttons = true;
        const RowCell hovered = rows.cell(option, index);
        QCOMPARE(hovered.name, resting.name); // nothing moves when the pointer comes
        QVERIFY(hovered.time.isNull() && !resting.time.isNull());
        const QRect last = rows.buttonRect(option, index, 9);
        QCOMPARE(last, hovered.buttons[1]);
        QCOMPARE(rows.buttonAt(option, index, last.center()), 9);
        QCOMPARE(rows.buttonAt(option, index, hovered.buttons[0].center()), 7);
        QCOMPARE(rows.buttonAt(option, index, hovered.name.center()), int(ListRowOption::NoButton));
        option.markedWords = QStringList{"ii"_s};
        TestRow row = TestRow::of(index);
        row.fit(option, rows.fonts(option.font));
        QCOMPARE(row.nameMarks, (zel::TextRanges{{0, row.name.size()}})); // what is cut out, too
        rows.setOffersButtons(false);
        QVERIFY(rows.buttonRect(option, index, 9).isNull());
        const RowCell without = rows.cell(option, index);
        QVERIFY2(
            without.name.width() > resting.name.width(), qPrintable(printed(resting) + printed(without)));
    }

    void elidedNames()
    {
        struct Case
        {
            QString name;
            int room; // in widths of "m"
            QString start, end;
        };
        const QString longName = QString(80, QLatin1Char('m'));
        const QString turned = "bill"_s + QChar(0x202E) + "txt.exe"_s; // reads "exe.txt"
        const QString joined = "a"_s + QChar(0x200D) + "b"_s;
        const Case cases[] = {
            {longName + ".docx"_s, 20, "mm"_s, "m.docx"_s},
            {longName, 20, "mm"_s, "m"_s},
            {QLatin1Char('.') + longName, 20, ".m"_s, "m"_s},
            {longName + ". And then some more"_s, 20, "mm"_s, "more"_s},
            {longName + ".docx"_s, 3, QString(), "x"_s},
            {"a\nb\t.odt"_s, 30, "a b .odt"_s, QString()},
            {turned, 30, "bill txt.exe"_s, QString()},
            {joined, 30, joined, QString()},
        };
        const QFontMetrics metrics{QFont()};
        for (const Case &one : cases) {
            const int width = one.room * metrics.horizontalAdvance(QLatin1Char('m'));
            const QString text = zel::elidedName(one.name, metrics, width);
            QVERIFY2(text.startsWith(one.start) && text.endsWith(one.end), qPrintable(text));
            QVERIFY2(metrics.horizontalAdvance(text) <= width, qPrintable(text));
        }
    }

    void marks()
    {
        const QString text = "annual report.docx"_s;
        struct Case
        {
            const char *shown, *words, *expected;
        };
        const Case cases[] = {{"ann…ort.docx", "an docx", "[an]n…ort.[docx]"}, // before and behind the cut
            {"ann…ort.docx", "annual", "[ann…]ort.docx"}, {"ann…ort.docx", "al", "ann[…]ort.docx"},
            {"ann…ort.docx", "ual re", "ann[…]ort.docx"}, {"…ort.docx", "port", "[…ort].docx"}};
        for (const auto &[shown, words, expected] : cases) {
            const QString line = QString::fromUtf8(shown);
            const zel::WordFilter filter(QString::fromUtf8(words));
            QCOMPARE(printed({line, zel::shownRanges(text, line, filter.ranges(text))}),
                QString::fromUtf8(expected));
        }
    }

    void snippets_data()
    {
        // room: in widths of "m"
        // expected: as a regular expression
        const auto row = zeltest::table<QString, int, QString>("text", "room", "expected");
        const QString long40 = "mmm mmm mmm mmm mmm mmm mmm mmm mmm mmm "_s;
        row("fits", "mm [mm] mm"_s, 20, R"(mm \[mm\] mm)");
        row("first mark near the start", "mm [mm] "_s + long40, 12, R"(mm \[mm\] m.*…)");
        row("first mark far behind", long40 + "[hit] mmm"_s, 16, R"(…(mmm )+\[hit\] mmm)");
        row("no marks", long40, 8, "mmm mmm.*…");
    }
    void snippets()
    {
        const auto [text, room, expected] = zeltest::row<QString, int, QString>();
        const QFontMetrics metrics{QFont()};
        const int width = room * metrics.horizontalAdvance(QLatin1Char('m'));
        const MarkedText fitted = marked(text).fitted(metrics, width);
        QVERIFY(metrics.horizontalAdvance(fitted.text) <= width);
        const QRegularExpression pattern(QRegularExpression::anchoredPattern(expected));
        QVERIFY2(pattern.match(printed(fitted)).hasMatch(), qPrintable(printed(fitted)));
    }

    // What is really behind a marked word, on every ground that a row can have.
    void marksAreReadable()
    {
        for (const bool dark : {false, true}) {
            for (const bool high : {false, true}) {
                zel::platform::SkinState::instance().setDesktop({dark, high, true, 1});
                for (const auto role : {KSkin::Color::Surface, KSkin::Color::Hover, KSkin::Color::Selected}) {
                    QImage image(40, 20, QImage::Format_RGB32);
                    image.fill(KSkin::color(role));
                    QPainter painter(&image);
                    zel::paintMarkedLine(&painter, image.rect(), painter.fontMetrics(),
                        {QString(9, QLatin1Char(' ')), {{0, 9}}});
                    const QColor ground = image.pixelColor(4, 8);
                    QVERIFY(ground != KSkin::color(role));
                    const double ratio = contrast(ground, KSkin::color(KSkin::Color::Text));
                    QVERIFY2(ratio >= (high ? 7 : 4.5), qPrintable(ground.name() + QString::number(ratio)));
                }
            }
        }
        zel::platform::SkinState::instance().setDesktop({false, false, true, 1});
    }

    void headings()
    {
        ColumnHeadings headings;
        headings.addColumn(RowColumn::Time, "Modified"_s);
        headings.addColumn(RowColumn::Size, "Size"_s);
        headings.setName("Name"_s);
        headings.setSort({zel::ListSort::Key::Time, Qt::DescendingOrder});
        headings.resize(700, headings.sizeHint().height());
        headings.show();
        QVERIFY(QTest::qWaitForWindowActive(&headings));
        const auto all = headings.findChildren<ColumnHeading *>();
        QHash<int, ColumnHeading *> byKey;
        for (ColumnHeading *heading : all)
            byKey.insert(int(heading->key()), heading);
        QString chosen;
        connect(&headings, &ColumnHeadings::sortChosen, this, [&chosen](const zel::ListSort &sort) {
            chosen +=
                QString::number(int(sort.key)) + QLatin1Char(sort.order == Qt::AscendingOrder ? '+' : '-');
        });
        QCOMPARE(byKey[0]->accessibleDescription(), "Newest first"_s);
        QTest::mouseClick(byKey[0], Qt::LeftButton); // turns
        QTest::mouseClick(byKey[2], Qt::LeftButton);
        QTest::mouseClick(byKey[1], Qt::LeftButton);
        QCOMPARE(byKey[1]->accessibleDescription(), "A to Z"_s);
        QVERIFY(byKey[0]->accessibleDescription().isEmpty());
        byKey[1]->setFocus();
        QTest::keyClick(byKey[1], Qt::Key_Return);
        QTest::keyClick(byKey[1], Qt::Key_Right);
        QVERIFY(byKey[0]->hasFocus());
        QTest::keyClick(byKey[0], Qt::Key_Space);
        QCOMPARE(chosen, "0+2-1+1-0-"_s);

        const RowMetrics sizes = RowFonts(headings.font()).sizes;
        const RowCell cell =
            RowCell::oneLine(headings.rect(), sizes, {10}, {RowColumn::Time, RowColumn::Size});
        const int padding = ColumnHeading::sidePadding();
        QCOMPARE(byKey[1]->x() + padding, cell.name.left());
        QCOMPARE(byKey[0]->x() + padding, cell.columns[0].left());
        QCOMPARE(byKey[2]->geometry().right() - padding, cell.columns[1].right());
        headings.resize(320, headings.height());
        QVERIFY(byKey[2]->geometry().right() <= 320 && byKey[2]->x() >= byKey[0]->geometry().right());
    }

private:
    static RowMetrics roundMetrics()
    {
        RowMetrics m;
        m.sideMargin = m.padding = m.spacing = 10;
        m.iconSize = 30;
        m.gap = 5;
        m.lineGap = 2;
        m.glyphSize = m.badgeHeight = 12;
        m.buttonSize = 28;
        m.badgePadding = 5;
        m.barHeight = 3;
        m.nameHeight = 16;
        m.smallHeight = 14;
        m.leastNameWidth = 100;
        m.wideNameWidth = 200;
        m.timeColumn = m.stateColumn = 100;
        m.sizeColumn = 60;
        return m;
    }
    using Place = std::pair<const char *, QRect>;
    static QVector<Place> placesOf(const RowCell &cell)
    {
        QVector<Place> places{{"icon", cell.icon}, {"name", cell.name}, {"glyph", cell.nameGlyph},
            {"badge", cell.badge}, {"snippet", cell.snippet}, {"mark", cell.placeGlyph},
            {"place", cell.place}, {"detail", cell.detail}, {"state", cell.state}, {"bar", cell.progress},
            {"time", cell.time}};
        for (const QRect &rect : cell.columns)
            places << Place{"column", rect};
        for (const QRect &rect : cell.buttons)
            places << Place{"button", rect};
        places.erase(
            std::remove_if(places.begin(), places.end(), [](const Place &p) { return p.second.isEmpty(); }),
            places.end());
        return places;
    }
    /// From left to right, "name 60-180"; the icon is always at 20-50.
    static QString printed(const RowCell &cell)
    {
        QStringList parts;
        const auto places = placesOf(cell);
        for (const auto &[name, rect] : places) {
            if (qstrcmp(name, "icon") != 0)
                parts << "%1 %2-%3"_s.arg(QLatin1String(name)).arg(rect.left()).arg(rect.right() + 1);
        }
        return parts.join(", "_s);
    }
    static RowCell cellOf(
        ListRow::Kind kind, const QRect &rect, const RowMetrics &sizes, const RowCell::Wishes &wishes)
    {
        const RowColumns columns{RowColumn::Time, RowColumn::Size};
        if (kind == ListRow::Kind::Snippet)
            return RowCell::withSnippet(rect, sizes, wishes);
        return kind == ListRow::Kind::Columns && RowCell::isWide(rect.width(), sizes, columns)
            ? RowCell::oneLine(rect, sizes, wishes, columns)
            : RowCell::twoLines(rect, sizes, wishes);
    }
    /// "a [marked] word"
    static MarkedText marked(QString text)
    {
        MarkedText result;
        for (int from = text.indexOf(QLatin1Char('[')); from >= 0; from = text.indexOf(QLatin1Char('['))) {
            const int to = text.remove(from, 1).indexOf(QLatin1Char(']'));
            text.remove(to, 1);
            result.marks << zel::TextRange{from, to - from};
        }
        result.text = text;
        return result;
    }
    static QString printed(const MarkedText &line)
    {
        QString text = line.text;
        for (int i = line.marks.size() - 1; i >= 0; --i) {
            text.insert(line.marks.at(i).start + line.marks.at(i).length, QLatin1Char(']'));
            text.insert(line.marks.at(i).start, QLatin1Char('['));
        }
        return text;
    }
    struct TestRow : ListRow
    {
        static TestRow of(const QModelIndex &index)
        {
            TestRow row;
            row.fileName = row.name = index.data().toString();
            row.place = "~/Documents"_s;
            row.time = "14:30"_s;
            row.buttons = {{7, ":/icons_svg/share.svg"_s}, {9, ":/icons_svg/more.svg"_s}};
            row.buttonRoom = 2;
            return row;
        }
    };
    class TestDelegate : public RowDelegate<TestRow>
    {
    protected:
        TestRow rowOf(const QModelIndex &index) const override { return TestRow::of(index); }
    };
};

QTEST_MAIN(TestRows)
#include "tst_rows.moc"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "skinstate.h"
#include "style/stylepaint.h"
#include "support/boxmain.h"
#include "support/contrast.h"

using Color = KSkin::Color;
using zel::style::mixed;

class PaletteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        const auto row = zeltest::table<bool, bool>("dark", "high");
        row("light", false, false);
        row("dark", true, false);
        row("light, high contrast", false, true);
        row("dark, high contrast", true, true);
    }

    void init()
    {
        QFETCH_GLOBAL(bool, dark);
        QFETCH_GLOBAL(bool, high);
        zel::platform::SkinState::instance().setDesktop({dark, high, true, 1});
        QCOMPARE(KSkin::isDark(), dark);
    }

    void textsAndEdges()
    {
        for (const Color ground : {Color::Window, Color::Surface, Color::Hover, Color::Selected}) {
            for (const Color text : {Color::Text, Color::TextSecondary, Color::Accent, Color::Badge})
                verifyText(KSkin::color(text), KSkin::color(ground), int(text), int(ground));
            for (const Color edge : {Color::ControlBorder, Color::Accent})
                verify(KSkin::color(edge), KSkin::color(ground), EdgeContrast, int(edge), int(ground));
        }
        verifyText(KSkin::color(Color::OnAccent), KSkin::color(Color::Accent));
        verifyText(KSkin::color(Color::OnBadge), KSkin::color(Color::Badge));
        const QPalette p = QApplication::palette();
        verifyText(p.color(QPalette::ToolTipText), p.color(QPalette::ToolTipBase));
        verifyText(p.color(QPalette::PlaceholderText), p.color(QPalette::Base));
        verifyText(p.color(QPalette::HighlightedText), p.color(QPalette::Highlight));
    }

    void tonedGrounds()
    {
        for (const Color below : {Color::Window, Color::Surface}) {
            const QColor accent = KSkin::color(Color::Accent);
            verifyText(accent, mixed(KSkin::color(below), accent, zel::look::SoftTintActive)); // a chip
            const QColor problem = KSkin::color(Color::Badge);
            const QColor notice = mixed(KSkin::color(below), problem, zel::look::SoftTint);
            verifyText(KSkin::color(Color::Text), notice);
            verify(problem, notice, EdgeContrast, int(Color::Badge), int(below)); // its glyph
        }
    }

    // Badges stand on the grounds of rows, but never on that of a selected one.
    void badges()
    {
        for (const Color below : {Color::Surface, Color::Hover}) {
            for (const Color text : {Color::Accent, Color::TextSecondary}) {
                const QColor ground = mixed(KSkin::color(below), KSkin::color(text), zel::look::SoftTint);
                verifyText(KSkin::color(text), ground, int(text), int(below));
            }
        }
    }

    // What the style really paints under a label.
    void pressedButtons()
    {
        for (const bool primary : {false, true}) {
            QPushButton button;
            button.setDefault(primary);
            button.setDown(true);
            button.resize(100, 40);
            verifyText(KSkin::color(primary ? Color::OnAccent : Color::Text), atLeft(button, 10), primary);
        }
    }

    void fieldsHaveAnEdge()
    {
        QLineEdit edit;
        QComboBox combo;
        QCheckBox check;
        for (QWidget *widget : std::initializer_list<QWidget *>{&edit, &combo, &check}) {
            widget->resize(widget->sizeHint());
            const QColor edge = atLeft(*widget, 0);
            QVERIFY2(contrast(edge, KSkin::color(Color::Surface)) >= EdgeContrast,
                qPrintable(QLatin1String(widget->metaObject()->className()) + edge.name()));
        }
    }

private:
    static constexpr double EdgeContrast = 3;
    // The colour in the middle of the left edge, `depth` pixels inside.
    static QColor atLeft(QWidget &widget, int depth)
    {
        return widget.grab().toImage().pixelColor(depth, widget.height() / 2);
    }

    static void verify(const QColor &color, const QColor &ground, double least, int role, int groundRole)
    {
        const double ratio = contrast(color, ground);
        const QString message = "%1 (%2) on %3 (%4): %5"_s;
        QVERIFY2(ratio >= least,
            qPrintable(message.arg(color.name()).arg(role).arg(ground.name()).arg(groundRole).arg(ratio)));
    }
    static void verifyText(const QColor &text, const QColor &ground, int role = -1, int groundRole = -1)
    {
        verify(text, ground, KSkin::highContrast() ? 7 : 4.5, role, groundRole);
    }
};

ZELTEST_BOX_MAIN(PaletteTest)
#include "tst_palette.moc"

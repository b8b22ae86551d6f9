// Paints the box's look into PNG files, for people to look at: colours, type, icons and every control in its
// states, each light and dark and in high contrast.
// ZEL_RESOURCES=<folder of the resource bundle> widgets_pictures <folder> [text scale]; QT_SCALE_FACTOR=2 for
// high resolution.
#include "kcoreapplication.h"
#include "kliteskin.h"
#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "skinstate.h"
#include "widgets/boxdialog.h"
#include "widgets/chip.h"
#include "widgets/emptystate.h"
#include "widgets/iconbutton.h"
#include "widgets/noticebar.h"
#include "widgets/progressring.h"
#include "widgets/searchfield.h"
#include "widgets/sidelist.h"
#include "widgets/svgicon.h"
#include "widgets/toggle.h"

namespace look = zel::look;

namespace {

enum class State { Normal, Hovered, Pressed, Focused, Disabled };
using Properties = std::initializer_list<std::pair<const char *, QVariant>>;
constexpr int Gap = 12;

/// Rows of pictures with a caption each, put together to one image.
class ContactSheet : public QWidget
{
public:
    ContactSheet()
    {
        QPalette colors = palette();
        colors.setColor(QPalette::Window, KSkin::color(KSkin::Color::Surface));
        setPalette(colors);
        m_rows->setContentsMargins(2 * Gap, 2 * Gap, 2 * Gap, 3 * Gap);
        m_rows->setSpacing(Gap);
    }
    void heading(const zeltest::Text &text)
    {
        m_rows->addWidget(caption(text, look::Type::Title, KSkin::Color::Text, {600, 28}));
    }
    void row(const zeltest::Text &text, const QVector<QPixmap> &cells)
    {
        auto *line = new QHBoxLayout;
        line->setSpacing(0);
        line->addWidget(caption(text, look::Type::Caption, KSkin::Color::TextSecondary, {150, 18}));
        for (const QPixmap &cell : cells) {
            auto *label = new QLabel;
            label->setPixmap(cell);
            line->addWidget(label);
            line->addSpacing(Gap);
        }
        line->addStretch();
        m_rows->addLayout(line);
    }

private:
    static QLabel *caption(const QString &text, look::Type type, KSkin::Color color, const QSize &size)
    {
        auto *label = new QLabel(text);
        label->setFont(look::font(type));
        QPalette colors = label->palette();
        colors.setColor(QPalette::WindowText, KSkin::color(color));
        label->setPalette(colors);
        label->setFixedSize(size.width(), text.contains(QLatin1Char('\n')) ? 48 : size.height());
        return label;
    }

    QVBoxLayout *m_rows = new QVBoxLayout(this);
};

/// Shows widgets one after the other in an active window and takes their pictures.
class Studio
{
public:
    ContactSheet sheet;

    Studio()
    {
        m_window.resize(900, 700);
        m_window.show();
        if (!QTest::qWaitForWindowActive(&m_window))
            qFatal("the window does not show");
    }

    QPixmap shot(QWidget *widget, const QSize &size = {}, State state = State::Normal)
    {
        widget->setParent(&m_window);
        widget->move(40, 40);
        widget->resize(size.isEmpty() ? widget->sizeHint() : size);
        widget->setEnabled(state != State::Disabled);
        widget->show();
        m_window.setFocus();
        if (state == State::Focused)
            widget->setFocus(Qt::TabFocusReason);
        m_window.setAttribute(Qt::WA_KeyboardFocusChange, state == State::Focused);
        widget->setAttribute(Qt::WA_UnderMouse, state == State::Hovered || state == State::Pressed);
        if (auto *button = qobject_cast<QAbstractButton *>(widget))
            button->setDown(state == State::Pressed);
        QTest::qWait(30); // layouts and icons settle
        const QPixmap picture = widget->grab();
        widget->hide();
        widget->setParent(nullptr);
        return picture;
    }

    /// A row of the widget in every state; it goes afterwards.
    void states(const char *caption, QWidget *widget, Properties properties = {}, const QSize &size = {})
    {
        for (const auto &[name, value] : properties)
            widget->setProperty(name, value);
        QVector<QPixmap> pictures;
        for (const auto state :
            {State::Normal, State::Hovered, State::Pressed, State::Focused, State::Disabled})
            pictures.append(shot(widget, size, state));
        sheet.row(caption, pictures);
        delete widget;
    }

    /// A row of what is painted on a cell of its own.
    template <class Paint> void painted(const zeltest::Text &caption, const QSize &size, const Paint &paint)
    {
        QPixmap picture(size * ratio());
        picture.setDevicePixelRatio(ratio());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(painter);
        sheet.row(caption, {picture});
    }

    qreal ratio() const { return m_window.devicePixelRatioF(); }

private:
    QWidget m_window;
};

void colorsAndType(Studio &studio)
{
    studio.sheet.heading("Colours");
    const QMetaEnum colors = QMetaEnum::fromType<KSkin::Color>();
    for (int role = 0; role < KSkin::ColorCount; ++role) {
        studio.painted(colors.key(role), {160, 24}, [&](QPainter &painter) {
            painter.setPen(KSkin::color(KSkin::Color::Border));
            painter.setBrush(KSkin::color(KSkin::Color(role)));
            painter.drawRoundedRect(0, 0, 159, 23, look::RadiusSmall, look::RadiusSmall);
        });
    }
    studio.sheet.heading("Type");
    const char *names[] = {"Caption", "Body", "Strong", "Subtitle", "Title", "Display"};
    for (int type = 0; type < 6; ++type) {
        studio.painted(names[type], {560, 34}, [&](QPainter &painter) {
            painter.setFont(look::font(look::Type(type)));
            painter.setPen(KSkin::color(KSkin::Color::Text));
            painter.drawText(QRect(0, 0, 560, 34), Qt::AlignLeft | Qt::AlignTop,
                "Recent documents 0123 最近的文档 云文档 議事録 최근 문서"_s);
        });
    }
}

void icons(Studio &studio)
{
    studio.sheet.heading("Icons at 12, 16, 18, 24, 32 and 48");
    const QColor ink = KSkin::color(KSkin::Color::Text);
    QVector<QPixmap> line;
    QStringList caption;
    const QStringList files = QDir(":/icons_svg"_s).entryList({"*.svg"_s});
    for (const QString &file : files) {
        if (file.startsWith("empty_"_s))
            continue;
        for (const int side : {12, 16, 18, 24, 32, 48})
            line.append(zel::tintedPixmap(":/icons_svg/"_s + file, {side, side}, studio.ratio(), ink));
        caption.append(file.chopped(4));
        if (caption.size() == 3 || file == files.last()) {
            studio.sheet.row(caption.join(QLatin1Char('\n')), line);
            caption.clear();
            line.clear();
        }
    }
}

void buttons(Studio &studio)
{
    studio.sheet.heading("Normal, hovered, pressed, focused, disabled");
    studio.states("button", new QPushButton("Cancel 取消"_s));
    studio.states(
        "default button", new QPushButton("Open 打开"_s), {{"autoDefault", false}, {"default", true}});
    studio.states("icon button", new IconButton(":/icons_svg/settings.svg"_s, "Settings"_s));
    studio.states("chip", new Chip("Spreadsheets 表格"_s));
    studio.states("chip, chosen", new Chip("Spreadsheets 表格"_s), {{"checked", true}});
    for (const bool on : {false, true}) {
        studio.states("check box", new QCheckBox("Start with the session 开机启动"_s), {{"checked", on}});
        studio.states("radio button", new QRadioButton("Dark 深色"_s), {{"checked", on}});
        studio.states("switch", new Toggle("Toggle"_s), {{"checked", on}});
    }
    auto *partly = new QCheckBox("Some"_s);
    partly->setCheckState(Qt::PartiallyChecked);
    studio.states("check box, partly", partly);
}

void fields(Studio &studio)
{
    const QSize wide(KLiteStyle::dpiScaled(180), KLiteStyle::dpiScaled(look::ControlHeight));
    studio.states("line edit", new QLineEdit, {{"placeholderText", "Name 名称"_s}}, wide);
    studio.states("line edit, filled", new QLineEdit("Report 报告.docx"_s), {}, wide);
    studio.states("search field", new SearchField("Search files 搜索"_s), {}, wide);
    studio.states("search field, filled", new SearchField({}), {{"text", "report 报告"_s}}, wide);
    auto *combo = new QComboBox;
    combo->addItems({"As the desktop 跟随系统"_s, "Light"_s});
    studio.states("combo box", combo, {}, wide);
    studio.states("spin box", new QSpinBox);
    studio.states("slider", new QSlider(Qt::Horizontal), {{"value", 40}}, {180, 24});
    studio.states("scroll bar", new QScrollBar(Qt::Horizontal), {}, {180, 8});
    QProgressBar progress;
    progress.setValue(62);
    ProgressRing ring;
    ring.setValue(62);
    ProgressRing busy;
    busy.setRange(0, 0);
    studio.sheet.row("progress", {studio.shot(&progress, wide), studio.shot(&ring), studio.shot(&busy)});
    QTabBar tabs;
    for (const char *text : {"Recent 最近", "Shared", "Starred"})
        tabs.addTab(QString::fromUtf8(text));
    studio.sheet.row("tabs", {studio.shot(&tabs), studio.shot(&tabs, {}, State::Focused)});
}

class SampleDialog : public BoxDialog
{
public:
    SampleDialog() : BoxDialog("Delete"_s, "Delete “Report 报告.docx”?"_s)
    {
        addText("The file goes to the recycle bin. 文件将被移至回收站。"_s);
        body()->addWidget(new QCheckBox("Do not ask again"_s));
        buttons()->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        setWindowFlags(Qt::Widget);
    }
};

void composites(Studio &studio)
{
    studio.sheet.heading("Composites");
    SideList side("Pages"_s);
    side.addPage(":/icons_svg/settings.svg"_s, "General 通用"_s);
    side.addPage(":/icons_svg/nav_recent.svg"_s, "Recent 最近"_s);
    side.addPage(":/icons_svg/nav_cloud.svg"_s, "Cloud documents 云文档"_s);
    QListWidget list;
    list.addItems({"Documents"_s, "文档"_s, "Pictures"_s});
    list.setCurrentRow(1);
    QMenu menu;
    menu.addAction(zel::tintedIcon(":/icons_svg/folder_open.svg"_s), "Open folder 打开文件夹"_s)
        ->setShortcut(QKeySequence("Ctrl+O"_s));
    QAction *pinned = menu.addAction("Pinned"_s);
    pinned->setCheckable(true);
    pinned->setChecked(true);
    menu.addSeparator();
    menu.addMenu("Send to"_s);
    menu.addAction(zel::tintedIcon(":/icons_svg/trash.svg"_s), "Remove"_s)->setEnabled(false);
    menu.setActiveAction(menu.actions().constFirst());
    studio.sheet.row("side list, list, menu",
        {studio.shot(&side), studio.shot(&side, {}, State::Focused), studio.shot(&list, {160, 110}),
            studio.shot(&menu)});
    for (const auto tone : {NoticeBar::Tone::Info, NoticeBar::Tone::Problem}) {
        NoticeBar notice;
        notice.showAction(
            "3 files moved to the recycle bin. 已移至回收站"_s, "Undo"_s, tone, NoticeBar::Stay);
        studio.sheet.row("notice", {studio.shot(&notice, {520, 40})});
    }
    EmptyStateWidget empty(":/icons_svg/empty_generic.svg"_s, "Nothing here yet 暂无文件"_s,
        "Files that you open will be listed here, newest first."_s);
    empty.addAction("Open a file 打开"_s);
    SampleDialog dialog;
    studio.sheet.row("empty state, dialog", {studio.shot(&empty, {380, 320}), studio.shot(&dialog)});
}

} // namespace

int main(int argc, char **argv)
{
    KCoreApplication app(argc, argv, "zelbox"_s, "Office"_s, "6.0"_s);
    KLitOfficeInfo office;
    office.resourceDirs << qEnvironmentVariable("ZEL_RESOURCES");
    KLiteSkin::setOfficeInfo(office);
    KLiteSkin::setDefaultBaseSkinInfo({});
    QApplication::setFont(KLiteStyle::applicationFont());
    const QStringList words = QCoreApplication::arguments();
    const qreal textScale = words.value(2, "1"_s).toDouble();
    const KSkin skin; // scale changes reach the font through it
    const auto paint = [&](const QString &file, std::initializer_list<void (*)(Studio &)> parts) {
        Studio studio;
        for (const auto part : parts)
            part(studio);
        studio.sheet.grab().save(words.value(1, "."_s) + file + "-%1x.png"_s.arg(studio.ratio()));
    };
    for (const bool contrast : {false, true}) {
        for (const bool dark : {false, true}) {
            zel::platform::SkinState::instance().setDesktop({dark, contrast, true, textScale});
            const QString variant = (dark ? "dark"_s : "light"_s) + (contrast ? "-contrast"_s : QString());
            paint("/basics-"_s + variant, {colorsAndType, icons});
            paint("/controls-"_s + variant, {buttons, fields, composites});
        }
    }
    return 0;
}

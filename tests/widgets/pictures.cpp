// Paints the box's look into PNG files, for people to look at: colours, type, icons and every control in its
// states, each light and dark and in high contrast.
// ZEL_RESOURCES=<folder of the resource bundle> widgets_pictures <folder> [text scale]; QT_SCALE_FACTOR=2 for
// high resolution.
#include "support/text.h"
#include "widgets/contactsheet.h"

#include "kcoreapplication.h"
#include "kliteskin.h"
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

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMetaEnum>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTabBar>
#include <QTest>

namespace look = zel::look;

namespace {

enum class State { Normal, Hovered, Pressed, Focused, Disabled };
constexpr State AllStates[] = {
    State::Normal, State::Hovered, State::Pressed, State::Focused, State::Disabled};

QString icon(const char *name)
{
    return ":/icons_svg/%1.svg"_s.arg(QLatin1String(name));
}

/// Shows widgets one after the other in an active window and takes their pictures.
class Studio
{
public:
    Studio()
    {
        m_window.resize(900, 700);
        m_window.show();
        if (!QTest::qWaitForWindowActive(&m_window))
            qFatal("the window does not show");
    }

    QPixmap shot(QWidget *widget, State state = State::Normal, QSize size = {})
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

    /// The widget in every state.
    QVector<QPixmap> states(QWidget *widget, QSize size = {})
    {
        QVector<QPixmap> pictures;
        for (const State state : AllStates)
            pictures.append(shot(widget, state, size));
        return pictures;
    }

    qreal ratio() const { return m_window.devicePixelRatioF(); }

private:
    QWidget m_window;
};

QPixmap blank(const QSize &size, qreal ratio)
{
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    return picture;
}

void palette(ContactSheet &sheet, qreal ratio)
{
    sheet.heading("Colours"_s);
    const QMetaEnum names = QMetaEnum::fromType<KSkin::Color>();
    for (int role = 0; role < KSkin::ColorCount; ++role) {
        QPixmap swatch = blank({160, 24}, ratio);
        QPainter painter(&swatch);
        painter.setPen(KSkin::color(KSkin::Color::Border));
        painter.setBrush(KSkin::color(KSkin::Color(role)));
        painter.drawRoundedRect(0, 0, 159, 23, look::RadiusSmall, look::RadiusSmall);
        sheet.row(QLatin1String(names.key(role)), {swatch});
    }
}

void typeScale(ContactSheet &sheet, qreal ratio)
{
    sheet.heading("Type"_s);
    const char *names[] = {"Caption", "Body", "Strong", "Subtitle", "Title", "Display"};
    for (int type = 0; type < 6; ++type) {
        QPixmap line = blank({560, 34}, ratio);
        QPainter painter(&line);
        painter.setFont(look::font(look::Type(type)));
        painter.setPen(KSkin::color(KSkin::Color::Text));
        painter.drawText(line.rect(), Qt::AlignLeft | Qt::AlignTop,
            "Recent documents 0123 最近的文档 云文档 議事録 최근 문서"_s);
        sheet.row(QLatin1String(names[type]), {line});
    }
}

void icons(ContactSheet &sheet, qreal ratio)
{
    sheet.heading("Icons at 12, 16, 18, 24, 32 and 48"_s);
    const QColor ink = KSkin::color(KSkin::Color::Text);
    QVector<QPixmap> line;
    QStringList caption;
    const QStringList files = QDir(":/icons_svg"_s).entryList({"*.svg"_s});
    for (const QString &file : files) {
        if (file.startsWith("empty_"_s))
            continue;
        for (const int side : {12, 16, 18, 24, 32, 48})
            line.append(zel::tintedPixmap(":/icons_svg/"_s + file, {side, side}, ratio, ink));
        caption.append(file.chopped(4));
        if (caption.size() == 3 || file == files.last()) {
            sheet.row(caption.join(QLatin1Char('\n')), line);
            caption.clear();
            line.clear();
        }
    }
}

void buttons(ContactSheet &sheet, Studio &studio)
{
    sheet.heading("Normal, hovered, pressed, focused, disabled"_s);
    QPushButton plain("Cancel 取消"_s);
    sheet.row("button"_s, studio.states(&plain));
    QPushButton primary("Open 打开"_s);
    primary.setAutoDefault(false);
    primary.setDefault(true);
    sheet.row("default button"_s, studio.states(&primary));
    IconButton iconButton(icon("settings"), "Settings"_s);
    sheet.row("icon button"_s, studio.states(&iconButton));
    Chip chip("Spreadsheets 表格"_s);
    sheet.row("chip"_s, studio.states(&chip));
    chip.setChecked(true);
    sheet.row("chip, chosen"_s, studio.states(&chip));
    for (const bool on : {false, true}) {
        QCheckBox check("Start with the session 开机启动"_s);
        check.setChecked(on);
        sheet.row("check box"_s, studio.states(&check));
        QRadioButton radio("Dark 深色"_s);
        radio.setChecked(on);
        sheet.row("radio button"_s, studio.states(&radio));
        Toggle toggle("Toggle"_s);
        toggle.setChecked(on);
        sheet.row("switch"_s, studio.states(&toggle));
    }
    QCheckBox partly("Some"_s);
    partly.setCheckState(Qt::PartiallyChecked);
    sheet.row("check box, partly"_s, studio.states(&partly));
}

void fields(ContactSheet &sheet, Studio &studio)
{
    const QSize wide(KLiteStyle::dpiScaled(180), KLiteStyle::dpiScaled(look::ControlHeight));
    QLineEdit edit;
    edit.setPlaceholderText("Name 名称"_s);
    sheet.row("line edit"_s, studio.states(&edit, wide));
    edit.setText("Report 报告.docx"_s);
    sheet.row("line edit, filled"_s, studio.states(&edit, wide));
    SearchField search("Search files 搜索"_s);
    sheet.row("search field"_s, studio.states(&search, wide));
    search.setText("report 报告"_s);
    sheet.row("search field, filled"_s, studio.states(&search, wide));
    QComboBox combo;
    combo.addItems({"As the desktop 跟随系统"_s, "Light"_s});
    sheet.row("combo box"_s, studio.states(&combo, wide));
    QSpinBox spin;
    sheet.row("spin box"_s, studio.states(&spin));
    QSlider slider(Qt::Horizontal);
    slider.setValue(40);
    sheet.row("slider"_s, studio.states(&slider, {180, 24}));
    QScrollBar bar(Qt::Horizontal);
    sheet.row("scroll bar"_s, studio.states(&bar, {180, 8}));
    QProgressBar progress;
    progress.setValue(62);
    ProgressRing ring;
    ring.setValue(62);
    ProgressRing busy;
    busy.setRange(0, 0);
    sheet.row(
        "progress"_s, {studio.shot(&progress, State::Normal, wide), studio.shot(&ring), studio.shot(&busy)});
    QTabBar tabs;
    for (const char *text : {"Recent 最近", "Shared", "Starred"})
        tabs.addTab(QString::fromUtf8(text));
    sheet.row("tabs"_s, {studio.shot(&tabs), studio.shot(&tabs, State::Focused)});
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

void composites(ContactSheet &sheet, Studio &studio)
{
    sheet.heading("Composites"_s);
    SideList side("Pages"_s);
    side.addPage(icon("settings"), "General 通用"_s);
    side.addPage(icon("nav_recent"), "Recent 最近"_s);
    side.addPage(icon("nav_cloud"), "Cloud documents 云文档"_s);
    QListWidget list;
    list.addItems({"Documents"_s, "文档"_s, "Pictures"_s});
    list.setCurrentRow(1);
    QMenu menu;
    menu.addAction(zel::tintedIcon(icon("folder_open")), "Open folder 打开文件夹"_s)
        ->setShortcut(QKeySequence("Ctrl+O"_s));
    QAction *pinned = menu.addAction("Pinned"_s);
    pinned->setCheckable(true);
    pinned->setChecked(true);
    menu.addSeparator();
    menu.addMenu("Send to"_s);
    QAction *gone = menu.addAction(zel::tintedIcon(icon("trash")), "Remove"_s);
    gone->setEnabled(false);
    menu.setActiveAction(menu.actions().constFirst());
    sheet.row("side list, list, menu"_s,
        {studio.shot(&side), studio.shot(&side, State::Focused),
            studio.shot(&list, State::Normal, {160, 110}), studio.shot(&menu)});
    for (const auto tone : {NoticeBar::Tone::Info, NoticeBar::Tone::Problem}) {
        NoticeBar notice;
        notice.showAction(
            "3 files moved to the recycle bin. 已移至回收站"_s, "Undo"_s, tone, NoticeBar::Stay);
        sheet.row("notice"_s, {studio.shot(&notice, State::Normal, {520, 40})});
    }
    EmptyStateWidget empty(icon("empty_generic"), "Nothing here yet 暂无文件"_s,
        "Files that you open will be listed here, newest first."_s);
    empty.addAction("Open a file 打开"_s);
    SampleDialog dialog;
    sheet.row(
        "empty state, dialog"_s, {studio.shot(&empty, State::Normal, {380, 320}), studio.shot(&dialog)});
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
    const QDir folder(QCoreApplication::arguments().value(1, "."_s));
    const qreal textScale = QCoreApplication::arguments().value(2, "1"_s).toDouble();
    const KSkin skin; // scale changes reach the font through it
    for (const bool contrast : {false, true}) {
        for (const bool dark : {false, true}) {
            zel::platform::SkinState::instance().setDesktop({dark, contrast, true, textScale});
            Studio studio;
            ContactSheet basics;
            palette(basics, studio.ratio());
            typeScale(basics, studio.ratio());
            icons(basics, studio.ratio());
            ContactSheet controls;
            buttons(controls, studio);
            fields(controls, studio);
            composites(controls, studio);
            const QString variant = (dark ? "dark"_s : "light"_s) + (contrast ? "-contrast"_s : QString())
                + "-%1x"_s.arg(studio.ratio());
            basics.image(studio.ratio()).save(folder.filePath("basics-%1.png"_s.arg(variant)));
            controls.image(studio.ratio()).save(folder.filePath("controls-%1.png"_s.arg(variant)));
        }
    }
    return 0;
}

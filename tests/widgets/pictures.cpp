// Paints the box's look into PNG files, for people to look at: colours, type, icons and every control in its
// states, each light and dark and in high contrast.
// ZEL_RESOURCES=<folder of the resource bundle> widgets_pictures <folder> [text scale]; QT_SCALE_FACTOR=2 for
// high resolution.
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
    return QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(name));
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
    sheet.heading(QStringLiteral("Colours"));
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
    sheet.heading(QStringLiteral("Type"));
    const char *names[] = {"Caption", "Body", "Strong", "Subtitle", "Title", "Display"};
    for (int type = 0; type < 6; ++type) {
        QPixmap line = blank({560, 34}, ratio);
        QPainter painter(&line);
        painter.setFont(look::font(look::Type(type)));
        painter.setPen(KSkin::color(KSkin::Color::Text));
        painter.drawText(line.rect(), Qt::AlignLeft | Qt::AlignTop,
            QString::fromUtf8("Recent documents 0123 最近的文档 云文档 議事録 최근 문서"));
        sheet.row(QLatin1String(names[type]), {line});
    }
}

void icons(ContactSheet &sheet, qreal ratio)
{
    sheet.heading(QStringLiteral("Icons at 12, 16, 18, 24, 32 and 48"));
    const QColor ink = KSkin::color(KSkin::Color::Text);
    QVector<QPixmap> line;
    QStringList caption;
    const QStringList files = QDir(QStringLiteral(":/icons_svg")).entryList({QStringLiteral("*.svg")});
    for (const QString &file : files) {
        if (file.startsWith(QLatin1String("empty_")))
            continue;
        for (const int side : {12, 16, 18, 24, 32, 48})
            line.append(zel::tintedPixmap(QStringLiteral(":/icons_svg/") + file, {side, side}, ratio, ink));
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
    sheet.heading(QStringLiteral("Normal, hovered, pressed, focused, disabled"));
    QPushButton plain(QString::fromUtf8("Cancel 取消"));
    sheet.row(QStringLiteral("button"), studio.states(&plain));
    QPushButton primary(QString::fromUtf8("Open 打开"));
    primary.setAutoDefault(false);
    primary.setDefault(true);
    sheet.row(QStringLiteral("default button"), studio.states(&primary));
    IconButton iconButton(icon("settings"), QStringLiteral("Settings"));
    sheet.row(QStringLiteral("icon button"), studio.states(&iconButton));
    Chip chip(QString::fromUtf8("Spreadsheets 表格"));
    sheet.row(QStringLiteral("chip"), studio.states(&chip));
    chip.setChecked(true);
    sheet.row(QStringLiteral("chip, chosen"), studio.states(&chip));
    for (const bool on : {false, true}) {
        QCheckBox check(QString::fromUtf8("Start with the session 开机启动"));
        check.setChecked(on);
        sheet.row(QStringLiteral("check box"), studio.states(&check));
        QRadioButton radio(QString::fromUtf8("Dark 深色"));
        radio.setChecked(on);
        sheet.row(QStringLiteral("radio button"), studio.states(&radio));
        Toggle toggle(QStringLiteral("Toggle"));
        toggle.setChecked(on);
        sheet.row(QStringLiteral("switch"), studio.states(&toggle));
    }
    QCheckBox partly(QStringLiteral("Some"));
    partly.setCheckState(Qt::PartiallyChecked);
    sheet.row(QStringLiteral("check box, partly"), studio.states(&partly));
}

void fields(ContactSheet &sheet, Studio &studio)
{
    const QSize wide(KLiteStyle::dpiScaled(180), KLiteStyle::dpiScaled(look::ControlHeight));
    QLineEdit edit;
    edit.setPlaceholderText(QString::fromUtf8("Name 名称"));
    sheet.row(QStringLiteral("line edit"), studio.states(&edit, wide));
    edit.setText(QString::fromUtf8("Report 报告.docx"));
    sheet.row(QStringLiteral("line edit, filled"), studio.states(&edit, wide));
    SearchField search(QString::fromUtf8("Search files 搜索"));
    sheet.row(QStringLiteral("search field"), studio.states(&search, wide));
    search.setText(QString::fromUtf8("report 报告"));
    sheet.row(QStringLiteral("search field, filled"), studio.states(&search, wide));
    QComboBox combo;
    combo.addItems({QString::fromUtf8("As the desktop 跟随系统"), QStringLiteral("Light")});
    sheet.row(QStringLiteral("combo box"), studio.states(&combo, wide));
    QSpinBox spin;
    sheet.row(QStringLiteral("spin box"), studio.states(&spin));
    QSlider slider(Qt::Horizontal);
    slider.setValue(40);
    sheet.row(QStringLiteral("slider"), studio.states(&slider, {180, 24}));
    QScrollBar bar(Qt::Horizontal);
    sheet.row(QStringLiteral("scroll bar"), studio.states(&bar, {180, 8}));
    QProgressBar progress;
    progress.setValue(62);
    ProgressRing ring;
    ring.setValue(62);
    ProgressRing busy;
    busy.setRange(0, 0);
    sheet.row(QStringLiteral("progress"),
        {studio.shot(&progress, State::Normal, wide), studio.shot(&ring), studio.shot(&busy)});
    QTabBar tabs;
    for (const char *text : {"Recent 最近", "Shared", "Starred"})
        tabs.addTab(QString::fromUtf8(text));
    sheet.row(QStringLiteral("tabs"), {studio.shot(&tabs), studio.shot(&tabs, State::Focused)});
}

class SampleDialog : public BoxDialog
{
public:
    SampleDialog() : BoxDialog(QStringLiteral("Delete"), QString::fromUtf8("Delete “Report 报告.docx”?"))
    {
        addText(QString::fromUtf8("The file goes to the recycle bin. 文件将被移至回收站。"));
        body()->addWidget(new QCheckBox(QStringLiteral("Do not ask again")));
        buttons()->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        setWindowFlags(Qt::Widget);
    }
};

void composites(ContactSheet &sheet, Studio &studio)
{
    sheet.heading(QStringLiteral("Composites"));
    SideList side(QStringLiteral("Pages"));
    side.addPage(icon("settings"), QString::fromUtf8("General 通用"));
    side.addPage(icon("nav_recent"), QString::fromUtf8("Recent 最近"));
    side.addPage(icon("nav_cloud"), QString::fromUtf8("Cloud documents 云文档"));
    QListWidget list;
    list.addItems({QStringLiteral("Documents"), QString::fromUtf8("文档"), QStringLiteral("Pictures")});
    list.setCurrentRow(1);
    QMenu menu;
    menu.addAction(zel::tintedIcon(icon("folder_open")), QString::fromUtf8("Open folder 打开文件夹"))
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+O")));
    QAction *pinned = menu.addAction(QStringLiteral("Pinned"));
    pinned->setCheckable(true);
    pinned->setChecked(true);
    menu.addSeparator();
    menu.addMenu(QStringLiteral("Send to"));
    QAction *gone = menu.addAction(zel::tintedIcon(icon("trash")), QStringLiteral("Remove"));
    gone->setEnabled(false);
    menu.setActiveAction(menu.actions().constFirst());
    sheet.row(QStringLiteral("side list, list, menu"),
        {studio.shot(&side), studio.shot(&side, State::Focused),
            studio.shot(&list, State::Normal, {160, 110}), studio.shot(&menu)});
    for (const auto tone : {NoticeBar::Tone::Info, NoticeBar::Tone::Problem}) {
        NoticeBar notice;
        notice.showAction(QString::fromUtf8("3 files moved to the recycle bin. 已移至回收站"),
            QStringLiteral("Undo"), tone, NoticeBar::Stay);
        sheet.row(QStringLiteral("notice"), {studio.shot(&notice, State::Normal, {520, 40})});
    }
    EmptyStateWidget empty(icon("empty_generic"), QString::fromUtf8("Nothing here yet 暂无文件"),
        QStringLiteral("Files that you open will be listed here, newest first."));
    empty.addAction(QString::fromUtf8("Open a file 打开"));
    SampleDialog dialog;
    sheet.row(QStringLiteral("empty state, dialog"),
        {studio.shot(&empty, State::Normal, {380, 320}), studio.shot(&dialog)});
}

} // namespace

int main(int argc, char **argv)
{
    KCoreApplication app(
        argc, argv, QStringLiteral("zelbox"), QStringLiteral("Office"), QStringLiteral("6.0"));
    KLitOfficeInfo office;
    office.resourceDirs << qEnvironmentVariable("ZEL_RESOURCES");
    KLiteSkin::setOfficeInfo(office);
    KLiteSkin::setDefaultBaseSkinInfo({});
    QApplication::setFont(KLiteStyle::applicationFont());
    const QDir folder(QCoreApplication::arguments().value(1, QStringLiteral(".")));
    const qreal textScale = QCoreApplication::arguments().value(2, QStringLiteral("1")).toDouble();
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
            const QString variant = (dark ? QStringLiteral("dark") : QStringLiteral("light"))
                + (contrast ? QStringLiteral("-contrast") : QString())
                + QStringLiteral("-%1x").arg(studio.ratio());
            basics.image(studio.ratio()).save(folder.filePath(QStringLiteral("basics-%1.png").arg(variant)));
            controls.image(studio.ratio())
                .save(folder.filePath(QStringLiteral("controls-%1.png").arg(variant)));
        }
    }
    return 0;
}

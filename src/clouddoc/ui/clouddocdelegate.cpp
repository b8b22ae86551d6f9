#include "clouddoc/ui/clouddocdelegate.h"

#include "base/sizetext.h"
#include "base/timetext.h"
#include "clouddoc/clouddocmodel.h"
#include "klitestyle.h"
#include "widgets/nametext.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>

using namespace zel::clouddoc;
using Model = CloudDocModel;

namespace {

constexpr char EditedId[] = "zelEditedId";
constexpr char OldName[] = "zelOldName";
constexpr char StemLength[] = "zelStemLength"; // until it has been selected

QString idOf(const QModelIndex &index)
{
    return index.data(Model::IdRole).toString();
}

} // namespace

CloudDocDelegate::CloudDocDelegate(QObject *parent) : RowDelegate(parent) { }

void CloudDocDelegate::setCutIds(const QStringList &ids)
{
    m_cut = QSet<QString>(ids.cbegin(), ids.cend());
}

// It may have been given another one meanwhile, which is not answered yet.
void CloudDocDelegate::forgetNewName(const QString &id, const QString &name)
{
    if (m_newNames.value(id) == name)
        m_newNames.remove(id);
}

CloudRow CloudDocDelegate::rowOf(const QModelIndex &index) const
{
    CloudRow row = CloudRow::of(index);
    const QString id = idOf(index);
    row.faded = m_cut.contains(id);
    if (const auto renamed = m_newNames.constFind(id); renamed != m_newNames.cend()) {
        row.name = zel::plainLine(*renamed);
        row.faded = true;
    }
    return row;
}

QString CloudDocDelegate::toolTip(const QModelIndex &index) const
{
    const auto document = index.data(Model::DocumentRole).value<CloudDocument>();
    QStringList lines{zel::plainLine(document.name)};
    if (document.modifiedAt > 0) {
        const QDateTime time = QDateTime::fromMSecsSinceEpoch(document.modifiedAt);
        lines << tr("Modified: %1").arg(zel::longTimeText(time).replace(QLatin1Char(' '), QChar::Nbsp));
    }
    if (!document.folder)
        lines << tr("Size: %1").arg(zel::sizeText(document.size));
    return zel::plainToolTip(lines);
}

QWidget *CloudDocDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const
{
    auto *editor = new QLineEdit(parent);
    editor->setAccessibleName(tr("New name"));
    editor->setProperty(EditedId, idOf(index));
    return editor;
}

void CloudDocDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *edit = static_cast<QLineEdit *>(editor);
    if (edit->isModified())
        return; // the row has changed meanwhile; what was typed is worth more
    const QString name = index.data(Model::NameRole).toString();
    edit->setText(name);
    edit->setProperty(OldName, name);
    edit->setProperty(StemLength, stemLength(name, index.data(Model::FolderRole).toBool()));
    edit->setModified(true);
}

void CloudDocDelegate::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &index) const
{
    const auto *edit = static_cast<const QLineEdit *>(editor);
    const QString name = cleanedName(edit->text());
    if (edit->text() == edit->property(OldName).toString())
        return; // nothing was typed, though the row may have another name by now
    if (name == index.data(Model::NameRole).toString() || !isFine(edit))
        return;
    m_newNames.insert(idOf(index), name);
    Q_EMIT const_cast<CloudDocDelegate *>(this)->renameRequested(idOf(index), name);
}

bool CloudDocDelegate::isFine(const QLineEdit *editor) const
{
    const QString id = editor->property(EditedId).toString();
    return !m_check || m_check(id, cleanedName(editor->text())) == NameProblem::None;
}

void CloudDocDelegate::updateEditorGeometry(
    QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const RowCell cell = this->cell(option, index);
    const int height = editor->sizeHint().height();
    const int frame = KLiteStyle::dpiScaled(8); // the text stays where it was
    const int right = cell.columns.isEmpty() ? cell.ground.right() : cell.columns.first().left();
    editor->setGeometry(
        cell.name.left() - frame, cell.ground.center().y() - height / 2, right - cell.name.left(), height);
}

// Once the view, which selects all, has opened the editor: the suffix stays, as long as nobody wants to
// change just that.
void CloudDocDelegate::selectStem(QLineEdit *editor)
{
    const QVariant length = editor ? editor->property(StemLength) : QVariant();
    if (!length.isValid())
        return;
    editor->setProperty(StemLength, {});
    editor->setSelection(0, length.toInt());
}

// A name that cannot be given keeps the editor open with the reason; leaving the editor then keeps the old
// name.
bool CloudDocDelegate::eventFilter(QObject *editor, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        selectStem(qobject_cast<QLineEdit *>(editor));
    const auto *key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event) : nullptr;
    auto *edit = qobject_cast<QLineEdit *>(editor);
    const bool enter = key && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter);
    if (edit && enter && !isFine(edit)) {
        const QString why =
            problemText(m_check(edit->property(EditedId).toString(), cleanedName(edit->text())));
        QToolTip::showText(edit->mapToGlobal(QPoint(0, edit->height())), why, edit);
        edit->setAccessibleDescription(why);
        return true;
    }
    return RowDelegate::eventFilter(editor, event);
}

QString zel::clouddoc::problemText(NameProblem problem)
{
    switch (problem) {
    case NameProblem::None:
        break;
    case NameProblem::Empty:
        return CloudDocDelegate::tr("A name is needed.");
    case NameProblem::Slash:
        return CloudDocDelegate::tr("A name cannot contain “/”.");
    case NameProblem::Reserved:
        return CloudDocDelegate::tr("This name is reserved for the drive itself.");
    case NameProblem::ControlCharacter:
        return CloudDocDelegate::tr("A name cannot contain line breaks or tabs.");
    case NameProblem::TooLong:
        return CloudDocDelegate::tr("This name is too long.");
    case NameProblem::Taken:
        return CloudDocDelegate::tr("This name is already taken here.");
    }
    return {};
}

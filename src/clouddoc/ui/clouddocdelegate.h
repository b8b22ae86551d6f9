#pragma once

#include "clouddoc/clouddocnames.h"
#include "clouddoc/ui/cloudrowtexts.h"
#include "lists/ui/rowdelegate.h"

#include <QHash>
#include <QSet>

class QLineEdit;

/// Shows a row of the cloud list and lets its name be edited. GUI thread. A name that cannot be given keeps
/// the editor open and says why.
class CloudDocDelegate : public RowDelegate<CloudRow>
{
    Q_OBJECT
public:
    using NameCheck = std::function<zel::clouddoc::NameProblem(const QString &id, const QString &name)>;

    explicit CloudDocDelegate(QObject *parent = nullptr);

    void setNameCheck(const NameCheck &check) { m_check = check; }
    void setCutIds(const QStringList &ids);
    void forgetNewName(const QString &id, const QString &name); ///< the drive has answered

    QString toolTip(const QModelIndex &index) const override;
    QWidget *createEditor(
        QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(
        QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

Q_SIGNALS:
    void renameRequested(const QString &id, const QString &name);

protected:
    bool eventFilter(QObject *editor, QEvent *event) override;
    CloudRow rowOf(const QModelIndex &index) const override;

private:
    bool isFine(const QLineEdit *editor) const;
    static void selectStem(QLineEdit *editor);

    NameCheck m_check;
    QSet<QString> m_cut;
    mutable QHash<QString, QString> m_newNames; // asked for, by id
};

namespace zel::clouddoc {
QString problemText(NameProblem problem); ///< why a name cannot be given, as a sentence. GUI thread.
}

#pragma once

#include "lists/ui/sectionlistarea.h"

/// A list in which one types, by keyboard or input method: what comes narrows the list, or leads to a row.
/// GUI thread.
class TypingListArea : public SectionListArea
{
    Q_OBJECT
public:
    explicit TypingListArea(QWidget *parent = nullptr);

    void setTypeToFilter(
        bool on); ///< first: yes; else what is typed leads to the next row that begins with it

    void keyboardSearch(const QString &text) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

Q_SIGNALS:
    void textTyped(const QString &text); ///< printable, to filter by

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void focusInEvent(QFocusEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    void acceptInputMethods();

    bool m_typeToFilter = true;
};

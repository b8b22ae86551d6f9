#pragma once

#include <QComboBox>

/// One of a few values of a setting. GUI thread.
class SettingChoice final : public QComboBox
{
    Q_OBJECT
public:
    explicit SettingChoice(QWidget *parent = nullptr);

    void choose(const QVariant &value); ///< of an item's data; the first when there is none of it
    QVariant value() const { return currentData(); }

Q_SIGNALS:
    void chosen(const QVariant &value); ///< by the user
};

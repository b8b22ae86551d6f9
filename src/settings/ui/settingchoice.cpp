#include "settings/ui/settingchoice.h"

#include "klitestyle.h"

SettingChoice::SettingChoice(QWidget *parent) : QComboBox(parent)
{
    // A long entry is shown whole in the list only.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(14);
    setMinimumWidth(KLiteStyle::dpiScaled(80)); // less than it would like
    connect(this, qOverload<int>(&QComboBox::activated), this, [this] { Q_EMIT chosen(value()); });
}

void SettingChoice::choose(const QVariant &value)
{
    setCurrentIndex(qMax(0, findData(value)));
}

#include "app/ui/endingdialog.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTimer>
#include <chrono>

using namespace std::chrono_literals;

namespace {
constexpr auto Longest = 30s; // a service that hangs must not keep the box
}

EndingDialog::EndingDialog(QWidget *parent)
    : BoxDialog(tr("Exit"), tr("Your documents are still being changed"), parent)
{
    addText(tr("ZEL Box exits once that is done, after half a minute at the latest. What is not done by then "
               "stays as it is."));
    buttons()->addButton(tr("Exit Now"), QDialogButtonBox::AcceptRole);
    buttons()->addButton(tr("Keep running"), QDialogButtonBox::RejectRole)->setDefault(true);
    QTimer::singleShot(Longest, this, &QDialog::accept);
}

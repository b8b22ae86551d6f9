#pragma once

#include "widgets/boxdialog.h"

#include <functional>

/// What helps those who look after the computer, when something does not work: to be copied, and where the
/// log is. Nothing is sent. GUI thread.
class FeedbackDialog : public BoxDialog
{
    Q_OBJECT
public:
    /// `problem` is what happened, in a sentence.
    explicit FeedbackDialog(const QString &problem, QWidget *parent = nullptr);

Q_SIGNALS:
    void logRequested(); ///< where it is, in the file manager

private:
    void addChoice(const QString &icon, const QString &text, const QString &explanation,
        const std::function<void()> &chosen);
};

#include "recentfile/ui/recentfiletitlewidget.h"

#include "klitestyle.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>

ZelBoxRecentFileTitleWidget::ZelBoxRecentFileTitleWidget(QWidget *parent)
    : QWidget(parent), m_title(new QLabel(this)), m_countLabel(new QLabel(this))
{
    m_title->setObjectName(QStringLiteral("text-title"));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setWeight(QFont::DemiBold);
    m_title->setFont(large);
    m_countLabel->setObjectName(QStringLiteral("text-count"));
    m_countLabel->setForegroundRole(QPalette::PlaceholderText);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({24, 18, 24, 6}));
    layout->setSpacing(KLiteStyle::dpiScaled(10));
    layout->addWidget(m_title, 0, Qt::AlignBaseline);
    layout->addWidget(m_countLabel, 0, Qt::AlignBaseline);
    layout->addStretch(1);
    updateTexts();
}

void ZelBoxRecentFileTitleWidget::setCount(int count)
{
    m_count = count;
    updateTexts();
}

void ZelBoxRecentFileTitleWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QWidget::changeEvent(event);
}

void ZelBoxRecentFileTitleWidget::updateTexts()
{
    const QString number = QLocale().toString(m_count);
    m_title->setText(tr("Recent"));
    m_countLabel->setText(number);
    m_countLabel->setAccessibleName(tr("Number of files: %1").arg(number));
    m_countLabel->setVisible(m_count > 0);
}

#pragma once

#include "kskin.h"

#include <QAbstractButton>

/// A flat button with one line icon, for title bars and rows. GUI thread. Its text is never drawn; it is the
/// accessible name and the tool tip.
class IconButton : public QAbstractButton
{
    Q_OBJECT
public:
    /// `icon` as in zel::tintedIcon(). `name` is shown to assistive programs and as tool tip.
    IconButton(const QString &icon, const QString &name, QWidget *parent = nullptr);

    void setIconPath(const QString &icon);
    void setName(const QString &name);
    void setHoverColor(KSkin::Color background, KSkin::Color foreground); ///< default: Hover and Text
    void setGlyphSize(int pixels);                                        ///< before DPI scaling; default 16

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    QString m_icon;
    int m_glyphSize = 16;
    KSkin::Color m_hoverBackground = KSkin::Color::Hover;
    KSkin::Color m_hoverForeground = KSkin::Color::Text;
};

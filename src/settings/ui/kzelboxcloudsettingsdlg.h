#pragma once

#include <QDialog>
#include <QPointer>

class KCloudSvrProxy;
class KSkin;
class QStackedWidget;
class SettingsPage;
class SideList;

/// The settings: the list of pages at the left, the chosen page at the right. Pages are made on their first
/// visit; changes act at once. GUI thread.
class CloudSettingsWidget final : public QWidget
{
    Q_OBJECT
public:
    /// `cloud` is not owned and may be null or away.
    CloudSettingsWidget(KSkin *skin, KCloudSvrProxy *cloud, QWidget *parent = nullptr);

    /// Goes to the named page ("general", "recent", "radar", "sync", "cloud", "privacy", "shortcuts") or
    /// control
    /// ("autostart", "close", "theme", "language", "account", "telemetry"); others change nothing.
    void setParameter(const QString &parameter);
    QString currentPage() const; ///< its name
    void refresh();              ///< reads anew what others may have changed

Q_SIGNALS:
    void languageChosen(); ///< and stored; texts made from now on are to be in it

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void choose(int row);
    SettingsPage *page(int row);
    SettingsPage *makePage(int row);

    KSkin *m_skin;
    QPointer<KCloudSvrProxy> m_cloud;
    SideList *m_list;
    QStackedWidget *m_stack;
    QVector<SettingsPage *> m_pages; ///< by row; null until the first visit
};

class KZelBoxCloudSettingsDlg final : public QDialog
{
    Q_OBJECT
public:
    explicit KZelBoxCloudSettingsDlg(KSkin *skin, KCloudSvrProxy *cloud = nullptr, QWidget *parent = nullptr);

    void setParameter(const QString &parameter) { m_settings->setParameter(parameter); }
    QString currentPage() const { return m_settings->currentPage(); }

Q_SIGNALS:
    void languageChosen(); ///< see CloudSettingsWidget

protected:
    bool event(QEvent *event) override;

private:
    CloudSettingsWidget *m_settings;
};

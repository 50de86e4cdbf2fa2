// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QDBusObjectPath>
#include <QIcon>
#include <QObject>
#include <QPoint>

/// A tray item as it stands on the bus. Hosts read its properties whenever they like, some only
/// those that introspection lists, so every one is there.
class StatusNotifierItem final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StatusNotifierItem)
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ id CONSTANT)
    Q_PROPERTY(QString Title READ title CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(QString IconThemePath READ iconThemePath CONSTANT)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QList<StatusNotifierPicture> IconPixmap READ iconPixmap)
    Q_PROPERTY(QString OverlayIconName READ none CONSTANT)
    Q_PROPERTY(QList<StatusNotifierPicture> OverlayIconPixmap READ noPictures CONSTANT)
    Q_PROPERTY(QString AttentionIconName READ none CONSTANT)
    Q_PROPERTY(QList<StatusNotifierPicture> AttentionIconPixmap READ noPictures CONSTANT)
    Q_PROPERTY(QString AttentionMovieName READ none CONSTANT)
    Q_PROPERTY(StatusNotifierToolTip ToolTip READ toolTip CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)

public:
    static QString path();

    /// @p itemIsMenu: every click is to open the menu that the host draws.
    StatusNotifierItem(QString id, QString title, bool itemIsMenu, QObject *parent);

    void setIcon(const QIcon &icon);

    [[nodiscard]] static QString category();
    [[nodiscard]] QString id() const { return m_id; }
    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] static QString status();
    [[nodiscard]] static int windowId() { return 0; }
    /// Where hosts find the icon's file beside their own themes; empty where they need not look.
    [[nodiscard]] QString iconThemePath() const { return m_iconThemePath; }
    /// Empty while no host could find the file.
    [[nodiscard]] QString iconName() const { return m_iconName; }
    [[nodiscard]] QList<StatusNotifierPicture> iconPixmap() const;
    [[nodiscard]] static QString none() { return {}; }
    [[nodiscard]] static QList<StatusNotifierPicture> noPictures() { return {}; }
    [[nodiscard]] StatusNotifierToolTip toolTip() const;
    [[nodiscard]] static QDBusObjectPath menu();
    [[nodiscard]] bool itemIsMenu() const { return m_itemIsMenu; }

public slots: // NOLINT(readability-redundant-access-specifiers): what is exported to the bus
    /// Places are in pixels of the screen.
    Q_SCRIPTABLE void Activate(int x, int y);
    Q_SCRIPTABLE void ContextMenu(int x, int y);
    Q_SCRIPTABLE void SecondaryActivate(int x, int y);
    Q_SCRIPTABLE void Scroll(int delta, const QString &orientation);
    Q_SCRIPTABLE void ProvideXdgActivationToken(const QString &token);

signals:
    Q_SCRIPTABLE void NewTitle();
    Q_SCRIPTABLE void NewIcon();
    Q_SCRIPTABLE void NewAttentionIcon();
    Q_SCRIPTABLE void NewOverlayIcon();
    Q_SCRIPTABLE void NewToolTip();
    Q_SCRIPTABLE void NewMenu();
    Q_SCRIPTABLE void NewStatus(const QString &status);

    /// A host leaves it to us to show the menu at @p place, in pixels of the screen.
    void menuWanted(const QPoint &place);

private:
    void findIconFile(const QString &name);

    QString m_id;
    QString m_title;
    bool m_itemIsMenu;
    QIcon m_icon;
    QString m_iconName;
    QString m_iconThemePath;
};

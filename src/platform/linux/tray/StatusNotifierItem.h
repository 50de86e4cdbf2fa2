// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QDBusObjectPath>
#include <QIcon>
#include <QObject>
#include <QPoint>

/// A tray item on the bus. All properties of the interface are present, because hosts may read any
/// of them at any time, and some read only those listed by introspection.
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

    /// With @p itemIsMenu, every click opens the menu drawn by the host.
    StatusNotifierItem(QString id, QString title, bool itemIsMenu, QObject *parent);

    enum class Host { DrawsTheFile, RecoloursTheFile };
    /// A host that recolours an installed icon is given its name, the others pictures of @p icon.
    void setIcon(const QIcon &icon, Host host);

    [[nodiscard]] static QString category();
    [[nodiscard]] QString id() const { return m_id; }
    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] static QString status();
    [[nodiscard]] static int windowId() { return 0; }
    /// An additional folder in which hosts find the icon's file; empty if none is needed.
    [[nodiscard]] QString iconThemePath() const { return m_iconThemePath; }
    /// Empty if hosts could not find the file.
    [[nodiscard]] QString iconName() const { return m_iconName; }
    [[nodiscard]] QList<StatusNotifierPicture> iconPixmap() const;
    [[nodiscard]] static QString none() { return {}; }
    [[nodiscard]] static QList<StatusNotifierPicture> noPictures() { return {}; }
    [[nodiscard]] StatusNotifierToolTip toolTip() const;
    [[nodiscard]] static QDBusObjectPath menu();
    [[nodiscard]] bool itemIsMenu() const { return m_itemIsMenu; }

public slots: // NOLINT(readability-redundant-access-specifiers): what is exported to the bus
    /// Positions are in screen pixels.
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

    /// The host asks us to show the menu at @p place, in screen pixels.
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

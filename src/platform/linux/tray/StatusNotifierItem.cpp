// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierItem.h"

#include "platform/linux/bus/ActivationToken.h"
#include "platform/linux/menu/BusMenu.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QStandardPaths>
#include <QtEndian>

#include <array>

namespace
{
// From the smallest panel to the largest at twice the scale. Hosts scale the nearest size.
constexpr std::array pictureSides{16, 18, 22, 24, 32, 48, 64};

StatusNotifierPicture picture(const QIcon &icon, int side)
{
    const QImage image
        = icon.pixmap(QSize(side, side), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    StatusNotifierPicture picture{.width = image.width(), .height = image.height(), .bytes = {}};
    picture.bytes.resize(image.sizeInBytes());
    qToBigEndian<quint32>(image.constBits(), image.sizeInBytes() / 4, picture.bytes.data());
    return picture;
}
} // namespace

QString StatusNotifierItem::path()
{
    return QStringLiteral("/StatusNotifierItem");
}

StatusNotifierItem::StatusNotifierItem(QString id, QString title, bool itemIsMenu, QObject *parent)
    : QObject(parent)
    , m_id(std::move(id))
    , m_title(std::move(title))
    , m_itemIsMenu(itemIsMenu)
{
}

void StatusNotifierItem::setIcon(const QIcon &icon, Host host)
{
    if (m_icon.isNull() && host == Host::RecoloursTheFile) {
        findIconFile(icon.name());
    }
    m_icon = icon;
    emit NewIcon();
}

void StatusNotifierItem::findIconFile(const QString &name)
{
    // Hosts may show no icon at all if they get a name that they cannot find.
    const QString file = QStringLiteral("/hicolor/symbolic/apps/") + name + QStringLiteral(".svg");
    const QString ownThemes
        = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/icons");
    if (!QStandardPaths::locate(QStandardPaths::GenericDataLocation, QStringLiteral("icons") + file)
             .isEmpty()) {
        m_iconName = name;
    } else if (QFile::exists(ownThemes + file)) {
        m_iconName = name;
        m_iconThemePath = ownThemes;
    }
}

QString StatusNotifierItem::category()
{
    return QStringLiteral("ApplicationStatus");
}

QString StatusNotifierItem::status()
{
    return QStringLiteral("Active");
}

QList<StatusNotifierPicture> StatusNotifierItem::iconPixmap() const
{
    QList<StatusNotifierPicture> pictures;
    for (const int side : pictureSides) {
        pictures.append(picture(m_icon, side));
    }
    return pictures;
}

StatusNotifierToolTip StatusNotifierItem::toolTip() const
{
    return {.iconName = {}, .icon = {}, .title = m_title, .text = {}};
}

QDBusObjectPath StatusNotifierItem::menu()
{
    return QDBusObjectPath(BusMenu::path());
}

void StatusNotifierItem::Activate(int x, int y)
{
    emit menuWanted({x, y});
}

void StatusNotifierItem::ContextMenu(int x, int y)
{
    emit menuWanted({x, y});
}

void StatusNotifierItem::SecondaryActivate(int x, int y)
{
    emit menuWanted({x, y});
}

void StatusNotifierItem::Scroll(int, const QString &) { }

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): exported to the bus
void StatusNotifierItem::ProvideXdgActivationToken(const QString &token)
{
    ActivationToken::adopt(token);
}

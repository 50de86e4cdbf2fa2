// SPDX-License-Identifier: MIT
#pragma once

#include "look/Look.h"

#include <QWidget>

class IconTile;

/// One row of the settings: a tile on the left, and next to it a title, a sentence that explains it
/// and the row's control.
class SettingRow final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingRow)

public:
    /// @p label and @p detail are shown verbatim; the row becomes the owner of @p control.
    SettingRow(const QString &icon, const Tint &tint, const QString &label, const QString &detail,
               QWidget *control, QWidget *parent);

    void setColorScheme(ColorScheme scheme);

private:
    [[nodiscard]] QWidget *createTexts(const QString &label, const QString &detail);

    IconTile *m_tile;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ColorScheme.h"

#include <QColor>
#include <QObject>

/// The desktop's appearance settings. A setting that the desktop does not provide, or has not
/// provided yet, has the default given here. The getters never block.
class Appearance : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Appearance)

public:
    using QObject::QObject;

    /// Default: light.
    [[nodiscard]] virtual ColorScheme colorScheme() const = 0;
    /// Invalid if the desktop has no accent colour.
    [[nodiscard]] virtual QColor accent() const = 0;
    [[nodiscard]] virtual bool wantsHighContrast() const = 0;
    [[nodiscard]] virtual bool wantsReducedMotion() const = 0;

    /// Called before a window is created. At startup only the colour scheme is requested, because a
    /// window must not open in the wrong one; the other settings can wait until this call.
    virtual void windowsWillOpen() = 0;

signals:
    /// One of the settings has changed.
    void changed();
};

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ColorScheme.h"

#include <QColor>
#include <QObject>

/// How the user wants their desktop to look. What the desktop does not tell, or has not told yet,
/// has the default that is named here; reading never waits.
class Appearance : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Appearance)

public:
    using QObject::QObject;

    /// Light unless the desktop says otherwise.
    [[nodiscard]] virtual ColorScheme colorScheme() const = 0;
    /// Invalid when the desktop has no accent colour.
    [[nodiscard]] virtual QColor accent() const = 0;
    [[nodiscard]] virtual bool wantsHighContrast() const = 0;
    [[nodiscard]] virtual bool wantsReducedMotion() const = 0;

    /// Called before a window is made. Only the colour scheme is asked for at the start, since a
    /// window must not open in the wrong one; the rest can wait until there is something to see.
    virtual void windowsWillOpen() = 0;

signals:
    /// One of the above is different now.
    void changed();
};

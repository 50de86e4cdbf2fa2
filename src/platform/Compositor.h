// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Whether there is a compositor, so that translucent windows show what is behind them.
class Compositor : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Compositor)

public:
    using QObject::QObject;

    [[nodiscard]] virtual bool isRunning() const = 0;
    /// Whether the compositor blurs what is behind a window if the window asks for it.
    [[nodiscard]] virtual bool blursBehind() const = 0;

signals:
    /// A compositor started or ended.
    void changed();
};

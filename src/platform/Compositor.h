// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Whether windows are composited, so that a translucent one shows what lies behind it.
class Compositor : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Compositor)

public:
    using QObject::QObject;

    [[nodiscard]] virtual bool isRunning() const = 0;
    /// Whether what lies behind a window is blurred where the window asks for it.
    [[nodiscard]] virtual bool blursBehind() const = 0;

signals:
    /// A compositor started or ended while the program was running.
    void changed();
};

// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QObject;
class QWidget;

/// Calls @p done when the compositor has handled all requests made so far, unless @p receiver is
/// deleted before.
void afterRoundTrip(QObject &receiver, const std::function<void()> &done);
/// Calls @p done when @p window has drawn its next frame and the compositor has handled it, unless
/// @p receiver is deleted before.
void afterNextFrame(QWidget &window, QObject &receiver, const std::function<void()> &done);

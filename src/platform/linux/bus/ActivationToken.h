// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The right to bring a window to the front, which on Wayland one program hands to another together
/// with the user's request.
namespace ActivationToken
{
/// Uses @p token for the next window that comes to the front. An empty one changes nothing.
void adopt(const QString &token);
/// The token that this program was started with and has not used, or an empty string.
[[nodiscard]] QString unused();
} // namespace ActivationToken

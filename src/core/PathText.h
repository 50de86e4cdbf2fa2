// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The part of @p path after its last slash, ignoring trailing slashes: "Journal" for
/// "/home/ann/Journal/". An empty path returns an empty string, "/" returns "/".
[[nodiscard]] QString lastPathComponent(const QString &path);

// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The part of @p path after its last slash, a trailing slash ignored: "Journal" for
/// "/home/ann/Journal/". The empty path gives the empty text, "/" gives "/".
[[nodiscard]] QString lastPathComponent(const QString &path);

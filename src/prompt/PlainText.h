// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// @p text as a note may hold it: every kind of line break (CR LF, CR, U+2028, U+2029) becomes LF;
/// anything that is not a character (U+0000, a lone surrogate) or that the editor uses internally
/// (U+FDD0, U+FDD1) becomes U+FFFD. Text that needs no change is returned as is, without a copy.
[[nodiscard]] QString plainText(const QString &text);

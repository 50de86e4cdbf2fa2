// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Converts a changelog in Debian's format (deb-changelog(5)) for users: without the information
/// for packagers, and with each item on one line. If it describes several versions, each gets its
/// number as a heading. Text in any other format is returned unchanged.
[[nodiscard]] QString releaseNotesOfDebianChangelog(const QString &changelog);

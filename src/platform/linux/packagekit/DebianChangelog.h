// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A changelog in Debian's format (deb-changelog(5)) as a person reads it: without what packagers
/// write to each other, and each item in one line. Where it is about several versions, each has
/// its number for a heading. Text in no such format is returned as it is.
[[nodiscard]] QString releaseNotesOfDebianChangelog(const QString &changelog);

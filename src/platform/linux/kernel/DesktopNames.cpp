// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/DesktopNames.h"

#include <QStringList>

#include <algorithm>

bool isDesktop(QStringView name)
{
    const auto names = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    return std::ranges::any_of(names, [name](const QString &each) {
        return each.compare(name, Qt::CaseInsensitive) == 0;
    });
}

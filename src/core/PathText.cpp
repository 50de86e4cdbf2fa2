// SPDX-License-Identifier: MIT
#include "core/PathText.h"

QString lastPathComponent(const QString &path)
{
    QStringView rest(path);
    while (rest.size() > 1 && rest.endsWith(u'/')) {
        rest.chop(1);
    }
    if (rest.size() == 1) {
        return rest.toString();
    }
    return rest.mid(rest.lastIndexOf(u'/') + 1).toString();
}

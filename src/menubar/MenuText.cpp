// SPDX-License-Identifier: MIT
#include "menubar/MenuText.h"

QString MenuText::drawn(const QString &text)
{
    return QString(text).replace(u'&', QStringLiteral("&&"));
}

QString MenuText::exported(const QString &text)
{
    QString label = QString(text).replace(u'_', QStringLiteral("__"));
    // The first of a doubled "&" becomes the mark, which leaves the second to be seen.
    if (const qsizetype first = label.indexOf(u'&'); first >= 0) {
        label.insert(first, u'&');
    }
    return label;
}

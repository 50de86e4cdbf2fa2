// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <ctime>

/// Sets the time zone until the end of a test.
class TimeZone final
{
public:
    explicit TimeZone(const char *name)
        : m_before(qgetenv("TZ"))
    {
        use(name);
    }
    ~TimeZone() { use(m_before); }
    Q_DISABLE_COPY_MOVE(TimeZone)

    static void use(const QByteArray &name)
    {
        qputenv("TZ", name);
        tzset();
    }

private:
    QByteArray m_before;
};

// SPDX-License-Identifier: MIT
#include "support/CanberraDouble.h"

#include <QSet>

#include <canberra.h>
#include <cstdarg>
#include <cstdlib>
#include <mutex>

// NOLINTNEXTLINE(readability-identifier-naming): the library declares it so
struct ca_context {
};

namespace
{
struct State {
    QStringList calls;
    QStringList properties;
    bool refusesContexts = false;
    int failures = 0;
};

std::mutex mutex;
State state;
QSet<ca_context *> contexts;

void check(ca_context *context)
{
    if (!contexts.contains(context)) {
        std::abort();
    }
}
} // namespace

void CanberraDouble::reset()
{
    const std::scoped_lock lock(mutex);
    state = {};
}

void CanberraDouble::refuseContexts()
{
    const std::scoped_lock lock(mutex);
    state.refusesContexts = true;
}

void CanberraDouble::failToPlay(int times)
{
    const std::scoped_lock lock(mutex);
    state.failures = times;
}

QStringList CanberraDouble::calls()
{
    const std::scoped_lock lock(mutex);
    return state.calls;
}

QStringList CanberraDouble::properties()
{
    const std::scoped_lock lock(mutex);
    return state.properties;
}

int ca_context_create(ca_context **context)
{
    const std::scoped_lock lock(mutex);
    state.calls.append(QStringLiteral("create"));
    if (state.refusesContexts) {
        return CA_ERROR_NODRIVER;
    }
    *context = new ca_context;
    contexts.insert(*context);
    return CA_SUCCESS;
}

int ca_context_destroy(ca_context *context)
{
    const std::scoped_lock lock(mutex);
    check(context);
    state.calls.append(QStringLiteral("destroy"));
    contexts.remove(context);
    delete context;
    return CA_SUCCESS;
}

int ca_context_play(ca_context *context, uint32_t id, ...)
{
    const std::scoped_lock lock(mutex);
    check(context);
    state.properties.clear();
    std::va_list arguments;
    va_start(arguments, id);
    QString path;
    while (const char *const name = va_arg(arguments, const char *)) {
        const QString value = QString::fromUtf8(va_arg(arguments, const char *));
        state.properties.append(QString::fromUtf8(name) + u'=' + value);
        path = qstrcmp(name, CA_PROP_MEDIA_FILENAME) == 0 ? value : path;
    }
    va_end(arguments);
    state.calls.append(QStringLiteral("play ") + path);
    return state.failures-- > 0 ? CA_ERROR_DISCONNECTED : CA_SUCCESS;
}

int ca_context_cancel(ca_context *context, uint32_t)
{
    const std::scoped_lock lock(mutex);
    check(context);
    state.calls.append(QStringLiteral("cancel"));
    return CA_SUCCESS;
}

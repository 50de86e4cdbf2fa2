// SPDX-License-Identifier: MIT
#include "platform/linux/bus/ActivationToken.h"

namespace
{
// The toolkit reads it when it brings a window to the front, and removes it.
constexpr auto variable = "XDG_ACTIVATION_TOKEN";
} // namespace

void ActivationToken::adopt(const QString &token)
{
    if (!token.isEmpty()) {
        qputenv(variable, token.toUtf8());
    }
}

QString ActivationToken::unused()
{
    return qEnvironmentVariable(variable);
}

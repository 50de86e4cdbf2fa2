// SPDX-License-Identifier: MIT
// Run by the build: writes the symbolic tray icon that is installed, from the code that draws it.
#include "menubar/menuBarIcon.h"

#include <cstdio>

int main()
{
    const QByteArray svg = MenuBarIcon::svg();
    const auto length = static_cast<size_t>(svg.size());
    return std::fwrite(svg.constData(), 1, length, stdout) == length ? 0 : 1;
}

// SPDX-License-Identifier: MIT
// Run by the build: generates the symbolic tray icon for installation from the drawing code.
#include "menubar/menuBarIcon.h"

#include <cstdio>

int main()
{
    const QByteArray svg = MenuBarIcon::svg();
    const auto length = static_cast<size_t>(svg.size());
    return std::fwrite(svg.constData(), 1, length, stdout) == length ? 0 : 1;
}

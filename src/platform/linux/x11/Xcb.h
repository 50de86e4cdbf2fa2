// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

/// The toolkit's connection to the X server, and common requests to it.
namespace Xcb
{
struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
/// A reply that the caller owns; null if the request failed.
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

/// Null if the program does not run on X11. Owned by the toolkit.
[[nodiscard]] xcb_connection_t *connection();
/// Asks the server only once for each name.
[[nodiscard]] xcb_atom_t atom(const QByteArray &name);
[[nodiscard]] xcb_window_t root();
/// The bytes of a property of any type; empty if the window is gone or has no such property.
[[nodiscard]] QByteArray property(xcb_window_t window, const QByteArray &name);
/// The screen number of the display that the program is connected to.
[[nodiscard]] int screenNumber();
} // namespace Xcb

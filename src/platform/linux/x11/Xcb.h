// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

/// The toolkit's own connection to the X server, and what is asked of it more than once.
namespace Xcb
{
struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
/// A reply is ours to free, and null when the request failed.
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

/// Null when the program does not run on X11. Owned by the toolkit.
[[nodiscard]] xcb_connection_t *connection();
/// Asks the server once for each name.
[[nodiscard]] xcb_atom_t atom(const QByteArray &name);
[[nodiscard]] xcb_window_t root();
/// Of the display that we are connected to.
[[nodiscard]] int screenNumber();
} // namespace Xcb

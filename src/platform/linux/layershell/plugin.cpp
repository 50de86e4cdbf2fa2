// SPDX-License-Identifier: MIT
// The functions that LayerShell.cpp looks up in the plug-in.
#include "platform/linux/layershell/LayerShellWindows.h"

#include <cstring>
#include <memory>
#include <wayland-client.h>

namespace
{
void lookForLayerShell(void *isOffered, wl_registry *, uint32_t, const char *interface, uint32_t)
{
    if (std::strcmp(interface, "zwlr_layer_shell_v1") == 0) {
        *static_cast<bool *>(isOffered) = true;
    }
}

void ignoreRemoval(void *, wl_registry *, uint32_t) { }

using Connection = std::unique_ptr<wl_display, decltype(&wl_display_disconnect)>;
using Registry = std::unique_ptr<wl_registry, decltype(&wl_registry_destroy)>;
} // namespace

/// Whether the compositor offers layer-shell. Asks it once, as the toolkit does when it connects.
extern "C" Q_DECL_EXPORT bool tovlaIsLayerShellOffered()
{
    const Connection connection(wl_display_connect(nullptr), &wl_display_disconnect);
    if (!connection) {
        return false;
    }
    const Registry registry(wl_display_get_registry(connection.get()), &wl_registry_destroy);
    constexpr wl_registry_listener listener{.global = lookForLayerShell,
                                            .global_remove = ignoreRemoval};
    bool isOffered = false;
    wl_registry_add_listener(registry.get(), &listener, &isOffered);
    wl_display_roundtrip(connection.get());
    return isOffered;
}

/// The caller owns the result.
extern "C" Q_DECL_EXPORT Windows *tovlaMakeLayerShellWindows()
{
    return new LayerShellWindows;
}

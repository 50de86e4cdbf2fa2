// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class Windows;

/// Windows on Wayland compositors that offer layer-shell (wlr-layer-shell). They come from a
/// plug-in of our own, so that only sessions on such compositors load the libraries it needs.
namespace LayerShell
{
/// Makes the toolkit use Wayland without X11 where floating windows can be layer surfaces: on
/// compositors with layer-shell that are neither GNOME's nor Plasma's, where windows can do more
/// through XWayland, or that have no XWayland. Must be called before the application object is
/// created.
void adopt();

/// The plug-in's windows, or null if the toolkit does not use Wayland or adopt() found no
/// layer-shell.
[[nodiscard]] std::unique_ptr<Windows> makeWindows();
} // namespace LayerShell

// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Compositor.h"

#include "platform/linux/x11/Xcb.h"

#include <algorithm>

bool X11Compositor::isRunning() const
{
    return Xcb::connection() == nullptr || owner().exists();
}

bool X11Compositor::blursBehind() const
{
    if (!Xcb::connection() || !owner().exists()) {
        return false;
    }
    // KWin sets this property on the root window while its blur effect is loaded.
    const xcb_atom_t blur = Xcb::atom("_KDE_NET_WM_BLUR_BEHIND_REGION");
    const auto cookie = xcb_list_properties(Xcb::connection(), Xcb::root());
    const Xcb::Owned<xcb_list_properties_reply_t> properties(
        xcb_list_properties_reply(Xcb::connection(), cookie, nullptr));
    if (!properties) {
        return false;
    }
    const xcb_atom_t *atoms = xcb_list_properties_atoms(properties.get());
    return std::find(atoms, atoms + properties->atoms_len, blur) != atoms + properties->atoms_len;
}

SelectionOwner &X11Compositor::owner() const
{
    if (!m_owner) {
        m_owner = std::make_unique<SelectionOwner>("_NET_WM_CM_S");
        connect(m_owner.get(), &SelectionOwner::changed, this, &Compositor::changed);
    }
    return *m_owner;
}

// SPDX-License-Identifier: MIT
#pragma once

/// Installs the texts in the language of the user; what that language lacks comes in the English of
/// a keyboard with a Control key. Needs the application object.
void installCatalogue();

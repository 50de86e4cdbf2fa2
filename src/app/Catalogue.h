// SPDX-License-Identifier: MIT
#pragma once

/// Installs the translation for the user's language. Missing texts, or all if there is no
/// catalogue for the language, fall back to English, worded for a keyboard with a Control key.
/// Needs the application object.
void installCatalogue();

// SPDX-License-Identifier: MIT
#pragma once

enum class ColorScheme { Light, Dark };

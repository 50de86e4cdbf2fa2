// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <cstddef>
#include <cstdint>

/// Called by libFuzzer with each input.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

/// The input, not copied.
inline QByteArray bytesOf(const uint8_t *data, size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data),
                                   static_cast<qsizetype>(size));
}

/// Ends the program, which libFuzzer reports along with the input.
inline void require(bool holds, const char *what)
{
    if (!holds) {
        qFatal("%s", what);
    }
}

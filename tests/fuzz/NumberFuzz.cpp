// SPDX-License-Identifier: MIT
// What is typed as the number of minutes, in locales that group and write digits differently.
#include "Fuzz.h"
#include "settings/IntervalText.h"

#include <QLocale>

#include <array>
#include <cstdlib>
#include <cstring>

namespace
{
const std::array locales{QLocale(QLocale::C),       QLocale(QLocale::English),
                         QLocale(QLocale::German),  QLocale(QLocale::French),
                         QLocale(QLocale::Persian), QLocale(QLocale::German, QLocale::Switzerland)};
} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0) {
        return 0;
    }
    const QLocale &locale = locales.at(data[0] % locales.size());
    const QByteArray bytes = bytesOf(data + 1, size - 1);
    const auto minutes = IntervalText::parsed(QString::fromUtf8(bytes), locale);
    const bool isShortNumber = !bytes.isEmpty() && bytes.size() <= 18
        && std::strspn(bytes.toStdString().c_str(), "0123456789") == bytes.toStdString().size();
    if (isShortNumber) {
        require(minutes == std::strtoll(bytes.toStdString().c_str(), nullptr, 10),
                "digits are not their number");
    }
    if (minutes) {
        const qint64 kept = IntervalText::clamped(*minutes);
        require(kept >= IntervalText::minimum && kept <= IntervalText::maximum,
                "an interval is out of range");
        require(IntervalText::parsed(IntervalText::text(kept, locale), locale) == kept,
                "a number that is shown cannot be typed");
    }
    return 0;
}

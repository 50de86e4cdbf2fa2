// SPDX-License-Identifier: MIT
#include "app/Catalogue.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace
{
/// The toolkit mirrors all windows if the catalogue translates this as "RTL".
[[maybe_unused]] constexpr auto layoutDirection
    = QT_TRANSLATE_NOOP("QGuiApplication", "QT_LAYOUT_DIRECTION");

const QString catalogueFolder = QStringLiteral(":/catalogue");

void install(QTranslator *translator, bool isLoaded)
{
    if (isLoaded) {
        QCoreApplication::installTranslator(translator);
    }
}
} // namespace

void installCatalogue()
{
    auto *const english = new QTranslator(qApp);
    install(english, english->load(QStringLiteral("tovla_en"), catalogueFolder));
    // The translator installed last takes precedence.
    auto *const ours = new QTranslator(qApp);
    install(ours,
            ours->load(QLocale(), QStringLiteral("tovla"), QStringLiteral("_"), catalogueFolder));
}

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

class QPalette;

/// Derives the colour scheme from the toolkit's palette, the only setting that it reveals.
class ToolkitAppearance : public Appearance
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ToolkitAppearance)

public:
    /// Judged by the window background.
    [[nodiscard]] static ColorScheme schemeOf(const QPalette &palette);

    ToolkitAppearance();

    [[nodiscard]] ColorScheme colorScheme() const override;
    [[nodiscard]] QColor accent() const override { return {}; }
    [[nodiscard]] bool wantsHighContrast() const override { return false; }
    [[nodiscard]] bool wantsReducedMotion() const override { return false; }
    void windowsWillOpen() override { }

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "updates/UpdateState.h"

#include <QLocale>

/// What the update window shows in one state: texts, a bar and buttons. All texts are plain text.
struct UpdatePage {
    enum class Action { none, close, cancel, install, restart };
    struct Button {
        QString text{};
        Action action = Action::none;

        bool operator==(const Button &) const = default;
    };
    /// The running program: its version and its file.
    struct Program {
        QString version;
        QString path;
    };

    QString headline{};
    QString text{};
    /// What went wrong with the last attempt, or what to consider before the next one.
    QString remark{};
    QString releaseNotes{};
    /// Shown only on request.
    QString details{};
    bool hasBar = false;
    /// The bar's progress, 0 to 100; nullopt while unknown.
    std::optional<int> percentage{};
    /// Triggered by Return.
    Button primary{};
    /// If present, triggered by Escape.
    Button secondary{};
    bool canCancel = false;

    [[nodiscard]] static UpdatePage of(const UpdateState &state, const Program &program,
                                       const QLocale &locale);
};

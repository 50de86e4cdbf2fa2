// SPDX-License-Identifier: MIT
#pragma once

#include "updates/UpdateState.h"

#include <QLocale>

/// What the update window shows in one state: texts, a bar, buttons. Texts are plain.
struct UpdatePage {
    enum class Action { none, close, cancel, install, restart };
    struct Button {
        QString text{};
        Action action = Action::none;

        bool operator==(const Button &) const = default;
    };
    /// The program that runs: the version that it is, and its file.
    struct Program {
        QString version;
        QString path;
    };

    QString headline{};
    QString text{};
    /// What went wrong with the last try, or what else is to be thought of before the next.
    QString remark{};
    QString releaseNotes{};
    /// What the user sees only on request.
    QString details{};
    bool hasBar = false;
    /// Of the bar, 0 to 100; nothing where it cannot be told.
    std::optional<int> percentage{};
    /// What Return does.
    Button primary{};
    /// What Escape does, where it is there.
    Button secondary{};
    bool canCancel = false;

    [[nodiscard]] static UpdatePage of(const UpdateState &state, const Program &program,
                                       const QLocale &locale);
};

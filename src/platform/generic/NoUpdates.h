// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Updates.h"

/// No update service: a check says so.
class NoUpdates final : public Updates
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NoUpdates)

public:
    NoUpdates() = default;

    [[nodiscard]] const UpdateState &state() const override { return m_state; }
    void check() override
    {
        m_state = {.stage = UpdateState::Stage::failed, .failure = UpdateState::Failure::noService};
        emit changed();
    }
    void install() override { }
    void cancel() override { }

private:
    UpdateState m_state;
};

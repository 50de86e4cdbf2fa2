// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Session.h"

/// Cannot reach the session: the desktop never asks before it logs out.
class NoSession final : public Session
{
public:
    void hold(const QString &) override { }
    void release() override { }
};

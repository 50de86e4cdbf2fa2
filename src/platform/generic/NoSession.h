// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Session.h"

class NoSession final : public Session
{
public:
    void hold(const QString &) override { }
    void release() override { }
};

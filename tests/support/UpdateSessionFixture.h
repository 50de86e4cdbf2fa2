// SPDX-License-Identifier: MIT
#pragma once

#include "support/TestPackageManager.h"
#include "updates/UpdateSession.h"

#include <QTest>

#include <memory>

Q_DECLARE_METATYPE(UpdateState::Failure)
Q_DECLARE_METATYPE(PackageManager::Failure)

/// An update session with a test package manager, in which version 1.0 is installed and 1.1 is
/// available.
class UpdateSessionFixture : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UpdateSessionFixture)

public:
    UpdateSessionFixture() = default;

protected:
    using Stage = UpdateState::Stage;
    using Failure = UpdateState::Failure;
    using Trouble = PackageManager::Failure;
    using Step = PackageManager::Progress::Step;

    [[nodiscard]] const UpdateState &state() const { return m_session->state(); }
    void start()
    {
        m_session.reset();
        m_packages = std::make_unique<TestPackageManager>();
        m_packages->installed = TestPackageManager::tovla(QStringLiteral("1.0"));
        m_packages->newer = TestPackageManager::tovla(QStringLiteral("1.1"));
        m_packages->notes = QStringLiteral("New bells.");
        m_session = std::make_unique<UpdateSession>(*m_packages, QStringLiteral("/opt/tovla"),
                                                    QStringLiteral("1.0"));
    }

    std::unique_ptr<TestPackageManager> m_packages;
    std::unique_ptr<UpdateSession> m_session;

private slots:
    void init() { start(); }
};

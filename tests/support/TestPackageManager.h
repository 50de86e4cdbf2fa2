// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PackageManager.h"

#include <QHash>
#include <QStringList>

#include <utility>

/// A package manager for tests. It answers immediately or when told to, and records the calls to
/// it.
class TestPackageManager final : public PackageManager
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TestPackageManager)

public:
    TestPackageManager() = default;

    [[nodiscard]] static Package tovla(const QString &version)
    {
        return {.id = QStringLiteral("tovla@") + version,
                .name = QStringLiteral("tovla"),
                .version = version,
                .programVersion = version,
                .source = QStringLiteral("home")};
    }

    /// The installed package, and the newer one in the sources.
    std::optional<Package> installed;
    std::optional<Package> newer;
    QString notes;
    QList<Change> changes;
    /// Whether a successful installation does nothing.
    bool installsNothing = false;
    /// Failures by operation.
    QHash<QString, Outcome> outcomes;
    /// The operation that is not answered until goOn().
    QString heldAt;
    /// Whether the others are answered in a later iteration of the event loop.
    bool answersLater = false;

    QStringList asked;

    [[nodiscard]] bool isHeld() const { return bool(m_held); }
    void goOn()
    {
        if (const auto answer = std::exchange(m_held, {})) {
            answer();
        }
    }
    void tell(const Progress &progress) { emit progressed(progress); }

    void findPackageOf(const QString &, Found found) override
    {
        answer(QStringLiteral("findPackageOf"),
               [=, this](const Outcome &outcome) { found(outcome, installed); });
    }
    void refreshSources(Done done) override { answer(QStringLiteral("refreshSources"), done); }
    void findNewerVersion(const Package &, Found found) override
    {
        answer(QStringLiteral("findNewerVersion"),
               [=, this](const Outcome &outcome) { found(outcome, newer); });
    }
    void findInstalled(const Package &, Found found) override
    {
        answer(QStringLiteral("findInstalled"),
               [=, this](const Outcome &outcome) { found(outcome, installed); });
    }
    void readReleaseNotes(const Package &, Told told) override
    {
        answer(QStringLiteral("readReleaseNotes"),
               [=, this](const Outcome &outcome) { told(outcome, notes); });
    }
    void simulate(const Package &, Listed listed) override
    {
        answer(QStringLiteral("simulate"),
               [=, this](const Outcome &outcome) { listed(outcome, changes); });
    }
    void install(const Package &update, Done done) override
    {
        answer(QStringLiteral("install"), [=, this](const Outcome &outcome) {
            if (outcome.succeeded() && !installsNothing) {
                installed = update;
            }
            done(outcome);
        });
    }
    void cancel() override { asked.append(QStringLiteral("cancel")); }
    void forget() override
    {
        asked.append(QStringLiteral("forget"));
        m_held = {};
    }

private:
    void answer(const QString &operation, const Done &answer)
    {
        asked.append(operation);
        m_held = [=, this] { answer(outcomes.value(operation)); };
        if (operation == heldAt) {
            return;
        }
        if (answersLater) {
            QMetaObject::invokeMethod(this, &TestPackageManager::goOn, Qt::QueuedConnection);
        } else {
            goOn();
        }
    }

    std::function<void()> m_held;
};

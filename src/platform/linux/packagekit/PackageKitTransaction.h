// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantList>

#include <functional>

/// PackageKit's identifier of a package: "name;version;architecture;data".
struct PackageId {
    QString text;

    [[nodiscard]] QString name() const { return text.section(u';', 0, 0); }
    [[nodiscard]] QString version() const { return text.section(u';', 1, 1); }
    /// The source of the package, or what is known about its origin.
    [[nodiscard]] QString data() const { return text.section(u';', 3); }
};

/// A PackageKit transaction (org.freedesktop.PackageKit.Transaction), which runs one method and
/// ends. Deletes itself after it has called @p finished.
class PackageKitTransaction final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PackageKitTransaction)

public:
    /// PK_INFO_ENUM: the state of a package.
    enum Info : uint { blocked = 9, installing = 12 };
    /// PK_EXIT_ENUM
    enum Exit : uint { success = 1, failed = 2, cancelled = 3 };
    /// PK_ERROR_ENUM, only the values that we treat differently.
    enum Error : uint {
        none = 0,
        noNetwork = 2,
        downloadFailed = 10,
        transactionCancelled = 17,
        cannotGetLock = 26,
        notAuthorised = 48,
        badSignature = 50,
    };
    /// PK_STATUS_ENUM
    enum Status : uint {
        waiting = 1,
        statusDownload = 8,
        statusInstall = 9,
        statusUpdate = 10,
        waitingForLock = 30,
        waitingForAuthorisation = 31,
    };

    struct Package {
        uint info = 0;
        PackageId id;
    };
    struct Progress {
        uint status = 0;
        uint percentage = unknownPercentage;
        qulonglong downloadSizeRemaining = 0;
        bool allowsCancel = false;
    };
    struct Outcome {
        uint exit = failed;
        uint error = none;
        QString errorText;
        /// The daemon is not available, has ended or did not answer.
        bool isServiceGone = false;
        QList<Package> packages;
        /// The arguments of UpdateDetail.
        QVariantList updateDetail;

        [[nodiscard]] bool succeeded() const { return exit == success; }
        [[nodiscard]] bool wasCancelled() const
        {
            return exit == cancelled || error == transactionCancelled;
        }
    };
    static constexpr uint unknownPercentage = 101;

    /// Runs @p method with @p arguments. @p finished always receives the outcome, unless this
    /// object is deleted first.
    PackageKitTransaction(QDBusConnection bus, QString method, QVariantList arguments,
                          std::function<void(const Outcome &)> finished, QObject *parent);

    [[nodiscard]] const Progress &progress() const { return m_progress; }
    /// Suppresses all further signals and callbacks.
    void forget();
    /// Asks the daemon to stop. Must only be called while progress() allows it.
    void cancel();

signals:
    void progressChanged();

private slots:
    void packageReported(uint info, const QString &id, const QString &summary);
    void updateDetailReported(const QDBusMessage &message);
    void errorReported(uint code, const QString &text);
    void finishedReported(uint exit, uint runtime);
    void transactionDestroyed();
    void serviceLost();
    void propertiesReported(const QString &interface, const QVariantMap &changed,
                            const QStringList &invalidated);

private:
    void create();
    void findService();
    void run();
    void connectSignals();
    void call(const QString &interface, const QString &method, const QVariantList &arguments,
              std::function<void(const QDBusMessage &)> answered);
    void readProgress(const QVariantMap &properties);
    void endByMessage(const QDBusMessage &error);
    void end();

    QDBusConnection m_bus;
    QString m_method;
    QVariantList m_arguments;
    std::function<void(const Outcome &)> m_finished;
    /// The daemon's unique bus name: no other program can impersonate it, and a late call does not
    /// start a new daemon.
    QString m_service;
    QString m_path;
    Progress m_progress;
    Outcome m_outcome;
    bool m_isIncomplete = false;
    bool m_hasEnded = false;
};

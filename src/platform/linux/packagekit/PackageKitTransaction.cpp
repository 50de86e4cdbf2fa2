// SPDX-License-Identifier: MIT
#include "platform/linux/packagekit/PackageKitTransaction.h"

#include "platform/linux/bus/Bus.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QLocale>

namespace
{
const QString packageKit = QStringLiteral("org.freedesktop.PackageKit");
const QString packageKitPath = QStringLiteral("/org/freedesktop/PackageKit");
const QString transactionInterface = QStringLiteral("org.freedesktop.PackageKit.Transaction");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

/// Limits for data from the daemon, well above what can be shown.
constexpr qsizetype longestText = 20000;
constexpr qsizetype mostPackages = 20000;
constexpr qsizetype longestId = 300;

bool isFailure(const QDBusMessage &reply)
{
    return reply.type() != QDBusMessage::ReplyMessage;
}

/// Errors from the bus itself mean that there was no answer; all others come from the daemon.
bool isFromTheBus(const QDBusMessage &error)
{
    return error.errorName().startsWith(u"org.freedesktop.DBus.Error.")
        && error.errorName() != u"org.freedesktop.DBus.Error.AccessDenied";
}
} // namespace

PackageKitTransaction::PackageKitTransaction(QDBusConnection bus, QString method,
                                             QVariantList arguments,
                                             std::function<void(const Outcome &)> finished,
                                             QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_method(std::move(method))
    , m_arguments(std::move(arguments))
    , m_finished(std::move(finished))
{
    create();
}

void PackageKitTransaction::create()
{
    const auto create = QDBusMessage::createMethodCall(packageKit, packageKitPath, packageKit,
                                                       QStringLiteral("CreateTransaction"));
    Bus::ask(m_bus, create, this, [this](const QDBusMessage &reply) {
        if (isFailure(reply)) {
            endByMessage(reply);
            return;
        }
        m_path = reply.arguments().value(0).value<QDBusObjectPath>().path();
        if (m_path.isEmpty()) {
            m_outcome.errorText = QStringLiteral("CreateTransaction: no path");
            end();
        } else {
            findService();
        }
    });
}

void PackageKitTransaction::findService()
{
    // Newer Qt versions do not reveal the sender of a reply. If another daemon has taken over the
    // name since, it does not know our path, and the calls fail.
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    auto find = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                               QStringLiteral("GetNameOwner"));
    find.setArguments({packageKit});
    Bus::ask(m_bus, find, this, [this](const QDBusMessage &reply) {
        if (isFailure(reply)) {
            endByMessage(reply);
        } else {
            m_service = reply.arguments().value(0).toString();
            run();
        }
    });
}

void PackageKitTransaction::run()
{
    connectSignals();
    const QStringList hints{QStringLiteral("locale=%1.UTF-8").arg(QLocale::system().name()),
                            QStringLiteral("interactive=true"), QStringLiteral("background=false")};
    call(transactionInterface, QStringLiteral("SetHints"), {hints}, {});
    call(transactionInterface, m_method, m_arguments, [this](const QDBusMessage &reply) {
        if (isFailure(reply)) {
            endByMessage(reply);
        }
    });
    call(propertiesInterface, QStringLiteral("GetAll"), {transactionInterface},
         [this](const QDBusMessage &reply) {
             if (!isFailure(reply)) {
                 readProgress(qdbus_cast<QVariantMap>(reply.arguments().value(0)));
             }
         });
}

void PackageKitTransaction::connectSignals()
{
    const auto listen = [this](const QString &interface, const char *name, const char *slot) {
        m_bus.connect(m_service, m_path, interface, QString::fromLatin1(name), this, slot);
    };
    listen(transactionInterface, "Package", SLOT(packageReported(uint, QString, QString)));
    listen(transactionInterface, "UpdateDetail", SLOT(updateDetailReported(QDBusMessage)));
    listen(transactionInterface, "ErrorCode", SLOT(errorReported(uint, QString)));
    listen(transactionInterface, "Finished", SLOT(finishedReported(uint, uint)));
    listen(transactionInterface, "Destroy", SLOT(transactionDestroyed()));
    listen(propertiesInterface, "PropertiesChanged",
           SLOT(propertiesReported(QString, QVariantMap, QStringList)));
    m_bus.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                  QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                  this, SLOT(serviceLost()));
    // A daemon that is killed during the transaction sends no signal.
    const auto *const watcher = new QDBusServiceWatcher(
        m_service, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this,
            &PackageKitTransaction::serviceLost);
}

void PackageKitTransaction::call(const QString &interface, const QString &method,
                                 const QVariantList &arguments,
                                 std::function<void(const QDBusMessage &)> answered)
{
    auto call = QDBusMessage::createMethodCall(m_service, m_path, interface, method);
    call.setArguments(arguments);
    call.setInteractiveAuthorizationAllowed(true);
    Bus::ask(m_bus, call, this, [answered = std::move(answered)](const QDBusMessage &reply) {
        if (answered) {
            answered(reply);
        }
    });
}

void PackageKitTransaction::cancel()
{
    call(transactionInterface, QStringLiteral("Cancel"), {}, [this](const QDBusMessage &reply) {
        if (isFailure(reply) && isFromTheBus(reply)) {
            endByMessage(reply);
        }
    });
}

void PackageKitTransaction::forget()
{
    m_hasEnded = true;
    // Other signals stay connected: the bus needs to know when this object is destroyed.
    disconnect(this, &PackageKitTransaction::progressChanged, nullptr, nullptr);
    deleteLater();
}

void PackageKitTransaction::packageReported(uint info, const QString &id, const QString &)
{
    // The upper half is the urgency of an update.
    constexpr uint kind = 0xFFFF;
    if (m_outcome.packages.size() < mostPackages && id.size() <= longestId) {
        m_outcome.packages.append({info & kind, {id}});
    } else {
        m_isIncomplete = true;
    }
}

void PackageKitTransaction::updateDetailReported(const QDBusMessage &message)
{
    m_outcome.updateDetail = message.arguments();
}

void PackageKitTransaction::errorReported(uint code, const QString &text)
{
    m_outcome.error = code;
    m_outcome.errorText = text.left(longestText);
}

void PackageKitTransaction::finishedReported(uint exit, uint)
{
    m_outcome.exit = exit;
    if (m_isIncomplete && m_outcome.succeeded()) {
        // An incomplete list must not be taken for a complete one.
        m_outcome.exit = failed;
        m_outcome.errorText = QStringLiteral("More packages than can be looked at.");
    }
    end();
}

void PackageKitTransaction::serviceLost()
{
    m_outcome.isServiceGone = true;
    end();
}

void PackageKitTransaction::transactionDestroyed()
{
    // The error signal with the reason may still be on its way; it arrives before the reply to this
    // call.
    call(propertiesInterface, QStringLiteral("GetAll"), {transactionInterface},
         [this](const QDBusMessage &) { end(); });
}

void PackageKitTransaction::propertiesReported(const QString &interface, const QVariantMap &changed,
                                               const QStringList &)
{
    if (interface == transactionInterface) {
        readProgress(changed);
    }
}

void PackageKitTransaction::readProgress(const QVariantMap &properties)
{
    const auto adopt = [&properties](const char *name, auto &value) {
        const auto found = properties.constFind(QLatin1String(name));
        using Value = std::remove_reference_t<decltype(value)>;
        if (found != properties.constEnd() && found->canConvert<Value>()) {
            value = found->value<Value>();
        }
    };
    adopt("Status", m_progress.status);
    adopt("Percentage", m_progress.percentage);
    adopt("AllowCancel", m_progress.allowsCancel);
    adopt("DownloadSizeRemaining", m_progress.downloadSizeRemaining);
    emit progressChanged();
}

void PackageKitTransaction::endByMessage(const QDBusMessage &error)
{
    m_outcome.isServiceGone = isFromTheBus(error);
    m_outcome.errorText
        = QStringLiteral("%1: %2").arg(error.errorName(), error.errorMessage()).left(longestText);
    end();
}

void PackageKitTransaction::end()
{
    if (m_hasEnded) {
        return;
    }
    m_hasEnded = true;
    deleteLater();
    m_finished(m_outcome);
}

// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"

#include <QObject>

#include <memory>

class MenuContent;

/// Connects the program's parts: launches it once this is known to be the only copy, and performs
/// the actions that the tray, the launcher and other programs request. Needs the QApplication,
/// which must outlive this object.
class TovlaApp final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TovlaApp)

public:
    TovlaApp();
    ~TovlaApp() override;

private:
    void launch();
    void request(const QString &action);
    void perform(const QString &action);

    AppDelegate m_appDelegate;
    std::unique_ptr<MenuContent> m_menu;
    bool m_hasLaunched = false;
    /// Actions requested while the program is still starting.
    QStringList m_waiting;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "look/ControlStyle.h"
#include "look/Labels.h"
#include "settings/IconTile.h"
#include "settings/SettingRow.h"
#include "support/AppStateForTests.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The settings window of a state on a desktop made for tests, new for each test.
class SettingsFixture : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_desktop = std::make_unique<TestDesktop>();
        m_state = std::make_unique<AppStateForTests>(*m_desktop);
        (*m_state)->showSettings();
        QVERIFY(QTest::qWaitForWindowActive(window()));
    }

    void cleanup() { m_state.reset(); }

protected:
    template <typename Widget>
    [[nodiscard]] Widget *named(const QString &accessibleName) const
    {
        for (Widget *const each : window()->findChildren<Widget *>()) {
            if (each->accessibleName() == accessibleName) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] QLineEdit *number() const { return named<QLineEdit>(u"Prompt Frequency"_s); }
    [[nodiscard]] QWidget *window() const { return m_state->settingsWindow(); }
    [[nodiscard]] QPushButton *button() const { return window()->findChild<QPushButton *>(); }
    [[nodiscard]] ElidedLabel *path() const
    {
        return window()->findChildren<ElidedLabel *>().constLast();
    }
    /// In window coordinates.
    static QRect placeOf(const QWidget &widget)
    {
        return {widget.mapTo(widget.window(), QPoint()), widget.size()};
    }
    static QRect faceOf(const QWidget &control)
    {
        return placeOf(control).marginsRemoved(ControlStyle::overhang);
    }
    [[nodiscard]] SettingRow *rowAt(const QRect &place) const
    {
        const auto rows = window()->findChildren<SettingRow *>();
        const auto found = std::ranges::find_if(
            rows, [&](const SettingRow *row) { return placeOf(*row).contains(place); });
        return found == rows.end() ? nullptr : *found;
    }
    [[nodiscard]] QLabel *label(const QString &text) const
    {
        for (QLabel *const each : window()->findChildren<QLabel *>()) {
            if (each->text() == text) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] QColor backgroundColor() const
    {
        return window()->grab().toImage().pixelColor(3, 3);
    }

    std::unique_ptr<TestDesktop> m_desktop;
    std::unique_ptr<AppStateForTests> m_state;
};

// SPDX-License-Identifier: MIT
#include "settings/FrequencyControl.h"

#include "core/AppState.h"
#include "core/StateObserver.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/Look.h"
#include "look/OverhangItem.h"
#include "look/TextMenu.h"
#include "settings/IntervalText.h"
#include "settings/Stepper.h"

#include <QContextMenuEvent>
#include <QEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>

namespace
{
constexpr int numberWidth = 56;
constexpr int spacing = 8;
// Beside what the toolkit leaves free at each end of a text field.
constexpr int textMargin = 2;
constexpr int nextSpacing = 4;
} // namespace

NumberField::NumberField(std::function<void(const QString &)> committed, QWidget *parent)
    : QLineEdit(parent)
    , m_committed(std::move(committed))
{
    setFont(systemFont(FontSizes::body));
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setFixedSize(numberWidth + 2 * ControlStyle::faceMargin, ControlStyle::outerHeight);
    setTextMargins(textMargin, 0, textMargin, 0);
    connect(this, &QLineEdit::returnPressed, this, &NumberField::commit);
}

void NumberField::contextMenuEvent(QContextMenuEvent *event)
{
    TextMenu::popUp(*this, event->globalPos());
}

void NumberField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) {
        commitIfEdited();
    }
}

void NumberField::hideEvent(QHideEvent *event)
{
    commitIfEdited();
    QLineEdit::hideEvent(event);
}

void NumberField::keyReleaseEvent(QKeyEvent *event)
{
    QLineEdit::keyReleaseEvent(event);
    // The window waits for Alt to be let go.
    event->ignore();
}

void NumberField::commitIfEdited()
{
    if (isModified()) {
        commit();
    }
}

void NumberField::commit()
{
    setModified(false);
    m_committed(text());
}

FrequencyControl::FrequencyControl(AppState &state)
    : m_state(state)
    , m_number(new NumberField([this](const QString &text) { take(text); }, this))
    , m_stepper(new Stepper([this](int direction) { step(direction); }, this))
    , m_unit(Labels::plain(QString(), systemFont(FontSizes::subheadline), Look::secondaryTextRole))
    , m_nextAt(
          Labels::plain(tr("next at"), systemFont(FontSizes::subheadline), Look::tertiaryTextRole))
    , m_nextTime(
          Labels::plain(QString(), systemFont(FontSizes::subheadline), Look::secondaryTextRole))
{
    m_number->setAccessibleName(QStringLiteral("Prompt Frequency"));
    m_stepper->setAccessibleName(m_number->accessibleName());
    auto *const next = new QHBoxLayout;
    next->setSpacing(nextSpacing);
    next->addWidget(m_nextAt);
    next->addWidget(m_nextTime);

    setContentsMargins(ControlStyle::overhang);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addItem(new OverhangItem(m_number, ControlStyle::overhang));
    layout->addItem(new OverhangItem(m_stepper, ControlStyle::overhang));
    layout->addWidget(m_unit);
    layout->addStretch();
    layout->addLayout(next);

    new StateObserver(state, this, [this] { refresh(); });
    connect(state.desktop().clock.get(), &Clock::zoneChanged, this,
            &FrequencyControl::showNextPrompt);
    showNumber();
    refresh();
}

void FrequencyControl::take(const QString &text)
{
    if (const auto minutes = IntervalText::parsed(text, QLocale::system())) {
        m_state.setIntervalMinutes(IntervalText::clamped(*minutes));
    }
    showNumber();
}

void FrequencyControl::step(int direction)
{
    m_number->commitIfEdited();
    const qint64 stepped
        = IntervalText::clamped(m_state.intervalMinutes() + direction * IntervalText::step);
    if (stepped != m_state.intervalMinutes()) {
        m_state.setIntervalMinutes(stepped);
        showNumber();
    }
}

void FrequencyControl::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LocaleChange) {
        showNumber();
        showNextPrompt();
    }
    QWidget::changeEvent(event);
}

void FrequencyControl::refresh()
{
    if (!m_number->isModified()) {
        showNumber();
    }
    m_unit->setText(m_state.intervalMinutes() == 1 ? tr("minute") : tr("minutes"));
    showNextPrompt();
}

void FrequencyControl::showNumber()
{
    m_number->setText(IntervalText::text(m_state.intervalMinutes(), QLocale::system()));
    // What a screen reader says when the stepper steps.
    m_stepper->setAccessibleDescription(m_number->text());
}

void FrequencyControl::showNextPrompt()
{
    const auto &next = m_state.nextPromptDate();
    m_nextAt->setVisible(next.has_value());
    m_nextTime->setVisible(next.has_value());
    if (next) {
        m_nextTime->setText(
            IntervalText::hoursAndMinutes(next->toLocalTime().time(), QLocale::system()));
    }
}

// SPDX-License-Identifier: MIT
#include "settings/FrequencyControl.h"

#include "look/Accessible.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/Look.h"
#include "look/OverhangItem.h"
#include "look/TextMenu.h"
#include "settings/NumberField.h"
#include "settings/Stepper.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

namespace
{
constexpr int spacing = 8;
constexpr int nextSpacing = 4;
} // namespace

FrequencyControl::FrequencyControl(const Compositor &compositor)
    : m_number(new NumberField([this](const QString &text) { setFromText(text); }, this))
    , m_stepper(new Stepper({.minimum = static_cast<int>(IntervalText::minimum),
                             .maximum = static_cast<int>(IntervalText::maximum),
                             .step = static_cast<int>(IntervalText::step)},
                            {.stepBy = [this](int direction) { step(direction); },
                             .set = [this](int minutes) { set(minutes); }},
                            this))
    , m_unit(Labels::plain(QString(), systemFont(FontSizes::subheadline), Look::secondaryTextRole))
    , m_nextAt(
          Labels::plain(tr("next at"), systemFont(FontSizes::subheadline), Look::tertiaryTextRole))
    , m_nextTime(
          Labels::plain(QString(), systemFont(FontSizes::subheadline), Look::secondaryTextRole))
{
    TextMenu::serve(*m_number, compositor);
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
}

void FrequencyControl::setFromText(const QString &text)
{
    if (const auto minutes = IntervalText::parsed(text, QLocale::system())) {
        m_minutes = IntervalText::clamped(*minutes);
        emit minutesChosen(m_minutes);
    }
    showNumber();
}

void FrequencyControl::step(int direction)
{
    m_number->commitIfEdited();
    set(IntervalText::clamped(m_minutes + direction * IntervalText::step));
}

// Callers limit the number: step() does, and so does Stepper::request().
void FrequencyControl::set(qint64 minutes)
{
    if (minutes != m_minutes) {
        m_minutes = minutes;
        emit minutesChosen(minutes);
        showNumber();
    }
}

void FrequencyControl::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LocaleChange) {
        showNumber();
        showNextTime();
    }
    QWidget::changeEvent(event);
}

void FrequencyControl::showMinutes(qint64 minutes)
{
    m_minutes = minutes;
    if (!m_number->isEdited()) {
        showNumber();
    }
    m_unit->setText(m_minutes == 1 ? tr("minute") : tr("minutes"));
    Accessible::describe(*m_number, m_unit->text());
}

void FrequencyControl::showNextPrompt(const std::optional<QDateTime> &next)
{
    m_next = next;
    showNextTime();
}

void FrequencyControl::showNumber()
{
    m_number->showNumber(IntervalText::text(m_minutes, QLocale::system()));
    m_stepper->setValue(static_cast<int>(m_minutes));
}

void FrequencyControl::showNextTime()
{
    m_nextAt->setVisible(m_next.has_value());
    m_nextTime->setVisible(m_next.has_value());
    if (m_next) {
        m_nextTime->setText(
            IntervalText::hoursAndMinutes(m_next->toLocalTime().time(), QLocale::system()));
    }
    Accessible::describe(*m_stepper,
                         m_next ? m_nextAt->text() + u' ' + m_nextTime->text() : QString());
}

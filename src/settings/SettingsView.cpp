// SPDX-License-Identifier: MIT
#include "settings/SettingsView.h"

#include "core/AppState.h"
#include "core/StateObserver.h"
#include "look/Accessible.h"
#include "look/OverhangItem.h"
#include "settings/FolderControl.h"
#include "settings/FrequencyControl.h"
#include "settings/SettingRow.h"
#include "settings/SoundControl.h"
#include "settings/ThemeControl.h"

#include <QPainter>
#include <QVBoxLayout>

#include <cmath>

namespace
{
constexpr int viewPadding = 24;
constexpr int dividerLeading = 50;
constexpr int dividerPadding = 12;
constexpr int dividerThickness = 1;

class Divider final : public QWidget
{
public:
    explicit Divider(QWidget *parent)
        : QWidget(parent)
    {
        Accessible::hide(*this);
        setFixedHeight(2 * dividerPadding + dividerThickness);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        // A rectangle's edges would fall between pixels at a fractional scale, and some dividers
        // be twice as thick as others.
        QPen pen(palette().color(Look::dividerRole), std::floor(devicePixelRatioF()));
        pen.setCosmetic(true);
        pen.setCapStyle(Qt::FlatCap);
        QPainter painter(this);
        painter.setPen(pen);
        constexpr qreal middle = dividerPadding + dividerThickness / 2.0;
        const int leading = isRightToLeft() ? 0 : dividerLeading;
        painter.drawLine(QLineF(leading, middle, leading + width() - dividerLeading, middle));
    }
};
} // namespace

SettingsView::SettingsView(AppState &state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
    , m_rows(new QVBoxLayout(this))
    , m_folder(new FolderControl)
    , m_frequency(new FrequencyControl(*state.desktop().compositor))
    , m_theme(new ThemeControl)
    , m_sound(new SoundControl(AppState::availableSounds(), *state.desktop().compositor))
{
    setFixedWidth(width);
    setAutoFillBackground(true);
    m_rows->setContentsMargins(viewPadding, viewPadding, viewPadding, viewPadding);
    m_rows->setSpacing(0);
    addRow(QStringLiteral("folder.fill"), Tints::blue, QStringLiteral("Folder"),
           QStringLiteral("Entries are saved as daily Markdown files"), m_folder);
    addRow(QStringLiteral("clock.fill"), Tints::orange, QStringLiteral("Prompt Frequency"),
           QStringLiteral("How often you'll be nudged to write"), m_frequency);
    addRow(QStringLiteral("circle.lefthalf.filled"), Tints::purple, QStringLiteral("Appearance"),
           QStringLiteral("Choose how Tovla looks"), m_theme);
    addRow(QStringLiteral("speaker.wave.2.fill"), Tints::green, QStringLiteral("Alert Sound"),
           QStringLiteral("Played when a writing prompt appears"), m_sound);
    connectControls();
    new StateObserver(state, this, [this] { refresh(); });
    connect(state.desktop().clock.get(), &Clock::zoneChanged, this, &SettingsView::refresh);
    refresh();
}

void SettingsView::connectControls()
{
    connect(m_folder, &FolderControl::chooseRequested, this, &SettingsView::pickFolder);
    connect(m_frequency, &FrequencyControl::minutesChosen, &m_state, &AppState::setIntervalMinutes);
    connect(m_theme, &ThemeControl::themeChosen, &m_state, &AppState::setTheme);
    connect(m_sound, &SoundControl::soundChosen, &m_state, &AppState::setSoundName);
    connect(m_sound, &SoundControl::previewRequested, &m_state, &AppState::playSelectedSound);
}

void SettingsView::refresh()
{
    m_folder->showFolder(m_state.folderPath());
    m_frequency->showMinutes(m_state.intervalMinutes());
    m_frequency->showNextPrompt(m_state.nextPromptDate());
    m_theme->showTheme(m_state.theme());
    m_sound->showSound(m_state.soundName());
}

void SettingsView::pickFolder()
{
    m_state.desktop().folderChooser->choose(*window(), tr("Choose"),
                                            [this](const QString &path) { folderChosen(path); });
}

void SettingsView::folderChosen(const QString &path)
{
    if (m_state.desktop().files->isFaithful(path)) {
        m_state.setFolderPath(path);
        return;
    }
    // Queued, because the chooser is still open.
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_state.desktop().alerts->warn(
                QStringLiteral("Journal"),
                tr("The name of this folder is not valid UTF-8, so Tovla would not find it again. "
                   "Rename it, or choose another one."),
                window());
        },
        Qt::QueuedConnection);
}

void SettingsView::addRow(const QString &icon, const Tint &tint, const QString &label,
                          const QString &detail, QWidget *control)
{
    if (m_rows->count() > 0) {
        m_rows->addWidget(new Divider(this));
    }
    auto *const row = new SettingRow(icon, tint, label, detail, control, this);
    m_rows->addItem(new OverhangItem(row, row->contentsMargins()));
}

void SettingsView::setLook(const Look &look)
{
    setPalette(look.palette());
    m_sound->setLook(look);
    const auto rows = findChildren<SettingRow *>();
    for (SettingRow *const row : rows) {
        row->setColorScheme(look.scheme);
    }
}

// SPDX-License-Identifier: MIT
#include "settings/SettingsView.h"

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

class Divider final : public QWidget
{
public:
    explicit Divider(QWidget *parent)
        : QWidget(parent)
    {
        Accessible::hide(*this);
        setFixedHeight(2 * dividerPadding + 1);
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
        constexpr qreal middle = dividerPadding + 0.5;
        painter.drawLine(QLineF(dividerLeading, middle, width(), middle));
    }
};
} // namespace

SettingsView::SettingsView(AppState &state, QWidget *parent)
    : QWidget(parent)
    , m_rows(new QVBoxLayout(this))
    , m_sound(new SoundControl(state))
{
    setFixedWidth(width);
    setAutoFillBackground(true);
    m_rows->setContentsMargins(viewPadding, viewPadding, viewPadding, viewPadding);
    m_rows->setSpacing(0);
    addRow(QStringLiteral("folder.fill"), Tints::blue, QStringLiteral("Folder"),
           QStringLiteral("Entries are saved as daily Markdown files"), new FolderControl(state));
    addRow(QStringLiteral("clock.fill"), Tints::orange, QStringLiteral("Prompt Frequency"),
           QStringLiteral("How often you'll be nudged to write"), new FrequencyControl(state));
    addRow(QStringLiteral("circle.lefthalf.filled"), Tints::purple, QStringLiteral("Appearance"),
           QStringLiteral("Choose how Tovla looks"), new ThemeControl(state));
    addRow(QStringLiteral("speaker.wave.2.fill"), Tints::green, QStringLiteral("Alert Sound"),
           QStringLiteral("Played when a writing prompt appears"), m_sound);
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

// SPDX-License-Identifier: MIT
#include "settings/FolderControl.h"

#include "core/AppState.h"
#include "core/PathText.h"
#include "core/StateObserver.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/Look.h"
#include "look/OverhangItem.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace
{
constexpr int spacing = 12;
constexpr int leastSpace = 8;
constexpr int nameToPath = 2;
} // namespace

FolderControl::FolderControl(AppState &state)
    : m_state(state)
    , m_none(Labels::plain(tr("No folder selected"), systemFont(FontSizes::subheadline),
                           Look::tertiaryTextRole))
    , m_name(new ElidedLabel(systemFont(FontSizes::subheadline, QFont::Medium),
                             QPalette::WindowText, this))
    , m_path(new ElidedLabel(systemFont(FontSizes::detail), Look::tertiaryTextRole, this))
{
    auto *const button = new QPushButton(Labels::withMnemonic(tr("Choose…")), this);
    button->setFont(systemFont(FontSizes::body));
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, &FolderControl::pickFolder);

    setContentsMargins(ControlStyle::overhang);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0); // the toolkit would put none beside the space
    layout->addLayout(createTexts(), 1);
    layout->addSpacing(spacing + leastSpace + spacing);
    layout->addItem(new OverhangItem(button, ControlStyle::overhang));

    new StateObserver(state, this, [this] { refresh(); });
    refresh();
}

QLayout *FolderControl::createTexts()
{
    auto *const texts = new QVBoxLayout;
    texts->setSpacing(nameToPath);
    for (QLabel *const label : std::initializer_list<QLabel *>{m_none, m_name, m_path}) {
        texts->addWidget(label);
    }
    return texts;
}

void FolderControl::refresh()
{
    const QString &path = m_state.folderPath();
    m_none->setVisible(path.isEmpty());
    m_name->setVisible(!path.isEmpty());
    m_path->setVisible(!path.isEmpty());
    m_name->setText(lastPathComponent(path));
    m_path->setText(path);
}

void FolderControl::pickFolder()
{
    m_state.desktop().folderChooser->choose(*window(), tr("Choose"),
                                            [this](const QString &path) { take(path); });
}

void FolderControl::take(const QString &path)
{
    if (m_state.desktop().files->isFaithful(path)) {
        m_state.setFolderPath(path);
        return;
    }
    // The chooser is still on the screen.
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

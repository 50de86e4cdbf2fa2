// SPDX-License-Identifier: MIT
#include "settings/FolderControl.h"

#include "core/AppState.h"
#include "core/PathText.h"
#include "core/StateObserver.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/Look.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace
{
constexpr int textsToButton = 12;
constexpr int leastSpace = 8;
constexpr int nameToPath = 2;
} // namespace

FolderControl::FolderControl(AppState &state)
    : m_state(state)
    , m_none(Labels::plain(tr("No folder selected"), systemFont(FontSizes::subheadline),
                           Look::tertiaryTextRole))
    , m_name(Labels::plain(QString(), systemFont(FontSizes::subheadline, QFont::Medium),
                           QPalette::WindowText))
    , m_path(new ElidedLabel(systemFont(FontSizes::detail), Look::tertiaryTextRole))
{
    auto *const button = new QPushButton(Labels::withMnemonic(tr("Choose…")));
    button->setFont(systemFont(FontSizes::body));
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, &FolderControl::pickFolder);

    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(textsToButton);
    layout->addLayout(createTexts(), 1);
    layout->addSpacing(leastSpace);
    layout->addWidget(button);

    new StateObserver(state, this, [this] { refresh(); });
    refresh();
}

QLayout *FolderControl::createTexts()
{
    auto *const texts = new QVBoxLayout;
    texts->setSpacing(nameToPath);
    for (QLabel *const label : {m_none, m_name, static_cast<QLabel *>(m_path)}) {
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
    m_state.desktop().folderChooser->choose(
        *window(), tr("Choose"),
        [state = &m_state](const QString &path) { state->setFolderPath(path); });
}

// SPDX-License-Identifier: MIT
#include "settings/FolderControl.h"

#include "core/PathText.h"
#include "look/Accessible.h"
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
// A spacer between the texts and the button, with the usual spacing on both sides.
constexpr int spacer = 8;
constexpr int textsToButton = spacing + spacer + spacing;
constexpr int nameToPath = 2;
} // namespace

FolderControl::FolderControl()
    : m_none(Labels::plain(tr("No folder selected"), systemFont(FontSizes::subheadline),
                           Look::tertiaryTextRole))
    , m_name(new ElidedLabel(systemFont(FontSizes::subheadline, QFont::Medium),
                             QPalette::WindowText, this))
    , m_path(new ElidedLabel(systemFont(FontSizes::detail), Look::tertiaryTextRole, this))
    , m_button(new QPushButton(Labels::withMnemonic(tr("Choose…")), this))
{
    m_button->setFont(systemFont(FontSizes::body));
    m_button->setAutoDefault(true);
    connect(m_button, &QPushButton::clicked, this, &FolderControl::chooseRequested);

    setContentsMargins(ControlStyle::overhang);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0); // QBoxLayout adds no spacing around a spacer, so it is included in it
    layout->addLayout(createTexts(), 1);
    layout->addSpacing(textsToButton);
    layout->addItem(new OverhangItem(m_button, ControlStyle::overhang));
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

void FolderControl::showFolder(const QString &path)
{
    m_none->setVisible(path.isEmpty());
    m_name->setVisible(!path.isEmpty());
    m_path->setVisible(!path.isEmpty());
    m_name->setText(lastPathComponent(path));
    m_path->setText(path);
    Accessible::describe(
        *m_button, path.isEmpty() ? m_none->text() : m_name->text() + QStringLiteral(", ") + path);
}

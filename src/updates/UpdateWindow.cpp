// SPDX-License-Identifier: MIT
#include "updates/UpdateWindow.h"

#include "look/Accessible.h"
#include "look/ApplicationIcon.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/Look.h"
#include "look/OverhangItem.h"
#include "look/TextMenu.h"
#include "platform/Desktop.h"
#include "updates/ProgressBar.h"
#include "updates/TextBox.h"
#include "updates/UpdateSession.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
using Action = UpdatePage::Action;

constexpr int iconSide = 64;
constexpr int iconToTexts = 20;
constexpr int textWidth = 380;
constexpr int padding = 24;
constexpr int spacing = 8;
constexpr int buttonSpacing = 12;

/// A button that Return presses while it has focus, as users expect in a dialog.
class DialogButton final : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            click();
        } else {
            QPushButton::keyPressEvent(event);
        }
    }
};
void showButton(QPushButton &button, const UpdatePage::Button &contents)
{
    button.setText(Labels::withMnemonic(contents.text));
    button.setVisible(contents.action != Action::none);
}
} // namespace

UpdateWindow::UpdateWindow(const Desktop &desktop, UpdateSession &session)
    : PanelWindow(tr("Software Update"),
                  QAccessible::Window) // screen readers read out all the texts of a dialog
    , m_desktop(desktop)
    , m_session(session)
    , m_column(new QVBoxLayout)
    , m_headline(addText(FontSizes::headline, QPalette::WindowText))
    , m_text(addText(FontSizes::body, QPalette::WindowText))
    , m_bar(new ProgressBar(desktop.appearance->wantsReducedMotion(), this))
    , m_remark(addText(FontSizes::body, QPalette::WindowText))
    , m_notesTitle(addText(FontSizes::subheadline, Look::secondaryTextRole))
    , m_notes(new TextBox(tr("Release Notes"), this))
    , m_detailsButton(new DialogButton(Labels::withMnemonic(tr("Details")), this))
    , m_details(new TextBox(tr("Details"), this))
    , m_secondary(new DialogButton(this))
    , m_primary(new DialogButton(this))
{
    layOut();
    TextMenu::serve(*m_notes, *desktop.compositor);
    TextMenu::serve(*m_details, *desktop.compositor);
    connect(&m_session, &UpdateSession::changed, this, &UpdateWindow::refresh);
    connect(desktop.appearance.get(), &Appearance::changed, this, &UpdateWindow::updateLook);
    updateLook();
    refresh();
    placeOnScreenWithPointer(*desktop.windows);
}

QLabel *UpdateWindow::addText(int fontSize, QPalette::ColorRole role)
{
    auto *const label = Labels::plain({}, systemFont(fontSize), role);
    label->setParent(this);
    label->setWordWrap(true);
    label->setFixedWidth(textWidth);
    return label;
}

void UpdateWindow::layOut()
{
    m_headline->setFont(systemFont(FontSizes::headline, QFont::DemiBold));
    m_notesTitle->setText(tr("Release Notes:"));
    auto *const icon = new QLabel(this);
    icon->setPixmap(applicationIcon().pixmap(QSize(iconSide, iconSide), devicePixelRatioF()));
    icon->setAccessibleName(QStringLiteral("Tovla"));
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(iconToTexts);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(icon, 0, Qt::AlignTop);
    layout->addLayout(m_column);

    m_column->setSpacing(spacing);
    m_column->addStrut(textWidth);
    for (QWidget *const each : {static_cast<QWidget *>(m_headline), static_cast<QWidget *>(m_text),
                                static_cast<QWidget *>(m_bar), static_cast<QWidget *>(m_remark),
                                static_cast<QWidget *>(m_notesTitle)}) {
        m_column->addWidget(each);
    }
    for (TextBox *const each : {m_notes, m_details}) {
        m_column->addItem(new OverhangItem(each, ControlStyle::overhang));
    }
    addButtons();
    styleControls();
}

void UpdateWindow::addButtons()
{
    auto *const row = new QHBoxLayout;
    row->setContentsMargins(0, spacing, 0, 0);
    row->setSpacing(buttonSpacing);
    row->addItem(new OverhangItem(m_detailsButton, ControlStyle::overhang));
    row->addStretch();
    row->addItem(new OverhangItem(m_secondary, ControlStyle::overhang));
    row->addItem(new OverhangItem(m_primary, ControlStyle::overhang));
    for (QPushButton *const button : {m_detailsButton, m_secondary, m_primary}) {
        button->setFont(systemFont(FontSizes::body));
    }
    m_column->addLayout(row);

    ControlStyle::setProminent(*m_primary);
    connect(m_detailsButton, &QPushButton::clicked, this,
            [this] { m_details->setVisible(!m_details->isVisible()); });
    connect(m_secondary, &QPushButton::clicked, this, [this] { perform(m_page.secondary.action); });
    connect(m_primary, &QPushButton::clicked, this, [this] { perform(m_page.primary.action); });
}

void UpdateWindow::updateLook()
{
    setPalette(look(*m_desktop.appearance).palette());
}

void UpdateWindow::refresh()
{
    if (m_session.state().stage == UpdateState::Stage::idle) {
        hide();
        return;
    }
    showPage(UpdatePage::of(m_session.state(),
                            {QCoreApplication::applicationVersion(), m_desktop.program->path()},
                            QLocale::system()));
}

void UpdateWindow::showPage(const UpdatePage &page)
{
    const bool isAnotherPage = page.headline != m_page.headline || page.primary != m_page.primary;
    m_page = page;
    const auto showText = [](QLabel *label, const QString &text) {
        // Avoids needless events, because screen readers drop events that arrive in a flood.
        if (label->text() != text) {
            label->setText(text);
        }
        label->setVisible(!text.isEmpty());
    };
    showText(m_headline, page.headline);
    showText(m_text, page.text);
    showText(m_remark, page.remark);
    m_bar->setVisible(page.hasBar);
    m_bar->setPercentage(page.percentage);
    if (m_bar->accessibleName() != page.headline) {
        m_bar->setAccessibleName(page.headline);
    }
    m_notesTitle->setVisible(!page.releaseNotes.isEmpty());
    m_notes->setVisible(!page.releaseNotes.isEmpty());
    m_detailsButton->setVisible(!page.details.isEmpty());
    showButton(*m_primary, page.primary);
    showButton(*m_secondary, page.secondary);
    m_secondary->setEnabled(page.secondary.action != Action::cancel || page.canCancel);
    Accessible::describe(*m_headline, page.text);
    if (isAnotherPage) {
        m_notes->showText(page.releaseNotes);
        m_details->showText(page.details);
        m_details->hide();
        (m_primary->isVisibleTo(this) ? m_primary : m_secondary)->setFocus();
        announcePage();
    }
}

void UpdateWindow::perform(Action action)
{
    switch (action) {
    case Action::none:
        break;
    case Action::close:
        close();
        break;
    case Action::cancel:
        m_session.cancel();
        break;
    case Action::install:
        m_session.install();
        break;
    case Action::restart:
        hide();
        emit restartRequested();
        break;
    }
}

void UpdateWindow::announcePage()
{
    if (!isActiveWindow()) {
        m_isAnnounced = false;
        return;
    }
    m_isAnnounced = true;
    QString spoken = m_page.headline;
    // With a bar, the text is left out: the bar reports the progress itself.
    if (!m_page.hasBar) {
        spoken += (spoken.back().isLetterOrNumber() ? QStringLiteral(". ") : QStringLiteral(" "))
            + m_page.text;
    }
    if (!m_page.remark.isEmpty()) {
        spoken += u' ' + m_page.remark;
    }
    Accessible::announce(*this, spoken);
}

bool UpdateWindow::event(QEvent *event)
{
    const bool isHandled = PanelWindow::event(event);
    if (event->type() == QEvent::WindowActivate && !m_isAnnounced) {
        announcePage();
    }
    return isHandled;
}

void UpdateWindow::hideEvent(QHideEvent *event)
{
    m_isAnnounced = false;
    PanelWindow::hideEvent(event);
}

void UpdateWindow::closeEvent(QCloseEvent *event)
{
    // An operation that cannot be cancelled continues; "Check for Updates…" shows the window again.
    m_session.cancel();
    QWidget::closeEvent(event);
}

void UpdateWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        const bool hasSecondary = m_page.secondary.action != Action::none;
        (hasSecondary ? m_secondary : m_primary)->click();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        m_primary->click();
    } else {
        PanelWindow::keyPressEvent(event);
    }
}

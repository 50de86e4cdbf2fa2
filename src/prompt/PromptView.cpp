// SPDX-License-Identifier: MIT
#include "prompt/PromptView.h"

#include "look/Accessible.h"
#include "look/Shadow.h"
#include "look/TextMenu.h"
#include "prompt/BareTextEditor.h"
#include "prompt/WritingBox.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QPainter>
#include <QShortcut>

PromptView::PromptView(PromptCallbacks callbacks, std::function<void()> onHeightChange,
                       const Look &look, QWidget *parent)
    : QWidget(parent)
    , m_callbacks(std::move(callbacks))
    , m_look(look)
    , m_box(new WritingBox(
          look,
          [this, onHeightChange = std::move(onHeightChange)] {
              updateGeometry();
              onHeightChange();
          },
          this))
{
    Accessible::setRole(*this, QAccessible::Client);
    setFocusProxy(m_box);
    addShortcuts();
    connect(&m_box->editor(), &QPlainTextEdit::textChanged, this, &PromptView::noteChanged);
}

double PromptView::editorHeight() const
{
    return m_box->editorHeight();
}

QSize PromptView::sizeHint() const
{
    return {width, static_cast<int>(editorHeight()) + 2 * margin};
}

bool PromptView::isBlank() const
{
    return m_box->editor().isBlank();
}

void PromptView::setLook(const Look &look)
{
    m_look = look;
    m_box->setLook(look);
    update();
}

void PromptView::placeDidChange()
{
    m_box->editor().reportCaretPlace();
}

void PromptView::serveMenu(const Compositor &compositor)
{
    TextMenu::serve(m_box->editor(), compositor);
}

void PromptView::setDescription(const QString &description)
{
    m_box->editor().setAccessibleDescription(description);
}

void PromptView::resizeEvent(QResizeEvent *)
{
    m_box->setGeometry(rect().adjusted(margin, margin, -margin, -margin));
}

void PromptView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // On a dark backdrop, a shadow must be more opaque to be visible.
    const double opacity = m_look.isLight() ? 0.14 : 0.28;
    Shadow{.offsetY = 1, .blur = 3, .color = atOpacity(Qt::black, opacity)}.paint(
        painter, m_box->geometry(), WritingBox::cornerRadius, m_look.textBackground);
}

void PromptView::addShortcuts()
{
    const auto add = [this](const QList<QKeySequence> &keys, auto action) {
        auto *const shortcut = new QShortcut(this);
        shortcut->setKeys(keys);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    add({Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter, Qt::META | Qt::Key_Return,
         Qt::META | Qt::Key_Enter},
        [this] { submit(); });
    add({Qt::Key_Escape}, [this] { cancel(); });
    // Tab alone inserts a tab into the note.
    add({Qt::CTRL | Qt::Key_Tab}, [this] { focusNextChild(); });
    add({Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab},
        [this] { focusPreviousChild(); });
}

void PromptView::submit()
{
    // The user has typed the text being composed as well.
    m_box->editor().endComposition();
    const QString note = m_box->editor().text().trimmed();
    if (!note.isEmpty()) { // submitting a blank note does nothing; the prompt stays open
        m_callbacks.onSubmit(note);
    }
}

void PromptView::cancel()
{
    if (m_box->editor().isComposing()) {
        QGuiApplication::inputMethod()->reset();
        return;
    }
    if (!m_box->editor().forgetJustComposed()) {
        m_callbacks.onCancel();
    }
}

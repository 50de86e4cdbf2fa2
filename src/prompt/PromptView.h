// SPDX-License-Identifier: MIT
#pragma once

#include "look/Look.h"

#include <QWidget>

#include <functional>

class Compositor;
class WritingBox;

/// What the view reports to whoever opened the prompt, which saves and closes. The close button is
/// not reported: it closes the window directly, and the note is discarded. A callback may be called
/// again if it leaves the prompt open. It must not delete the prompt before it returns (see
/// AppState::DeleteLater).
struct PromptCallbacks {
    /// Receives a note that is not empty and has no white space at either end.
    std::function<void(const QString &text)> onSubmit;
    std::function<void()> onCancel;
};

/// The content of a prompt: the writing box on the backdrop, with the keyboard commands to submit
/// (Control-Return or Super-Return) and to cancel (Escape).
class PromptView final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PromptView)

public:
    static constexpr int width = 560;
    /// Between the box and each edge.
    static constexpr int margin = 12;

    /// @p onHeightChange is called when sizeHint() has changed.
    PromptView(PromptCallbacks callbacks, std::function<void()> onHeightChange, const Look &look,
               QWidget *parent);

    /// Whether there is nothing to submit yet.
    [[nodiscard]] bool isBlank() const;
    /// The height of the writing box, in logical pixels.
    [[nodiscard]] double editorHeight() const;
    /// 560 wide, and as high as the text needs.
    [[nodiscard]] QSize sizeHint() const override;
    void setLook(const Look &look);
    /// Must be called after the view has moved on the screen.
    void placeDidChange();
    /// Gives the note its context menu; @p compositor must outlive the view.
    void serveMenu(const Compositor &compositor);
    /// Sets what a screen reader says after the editor's name.
    void setDescription(const QString &description);

signals:
    void noteChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void addShortcuts();
    void submit();
    void cancel();

    PromptCallbacks m_callbacks;
    Look m_look;
    WritingBox *m_box;
};

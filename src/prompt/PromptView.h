// SPDX-License-Identifier: MIT
#pragma once

#include "look/Look.h"

#include <QWidget>

#include <functional>

class Compositor;
class WritingBox;

/// What a prompt tells whoever opened it. It never saves or closes by itself.
struct PromptCallbacks {
    /// Gets a note that is not empty and has no white space at either end.
    std::function<void(const QString &text)> onSubmit;
    std::function<void()> onCancel;
};

/// The content of a prompt: the writing box on the backdrop, with the two commands of the keyboard,
/// Control-Return to submit and Escape to cancel.
class PromptView final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PromptView)

public:
    static constexpr int width = 560;
    /// Between the box and each edge.
    static constexpr int margin = 12;

    /// @p onHeightChange hears that sizeHint() is different now.
    PromptView(PromptCallbacks callbacks, std::function<void()> onHeightChange, const Look &look,
               QWidget *parent);

    /// There is no note yet that could be submitted.
    [[nodiscard]] bool isBlank() const;
    /// The height of the writing box.
    [[nodiscard]] double editorHeight() const;
    /// 560 wide, and as high as the text wants.
    [[nodiscard]] QSize sizeHint() const override;
    void setLook(const Look &look);
    /// The view is at another place of the screen.
    void placeDidChange();
    /// Gives the note its context menu; @p compositor must outlive the view.
    void serveMenu(const Compositor &compositor);
    /// What a screen reader says of the editor after its name.
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
    ColorScheme m_colorScheme;
    WritingBox *m_box;
};

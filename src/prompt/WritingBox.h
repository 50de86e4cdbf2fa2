// SPDX-License-Identifier: MIT
#pragma once

#include "look/Look.h"
#include "prompt/EditorHeight.h"

#include <QWidget>

#include <functional>

class BareTextEditor;

/// The box that contains the note; its face is part of the view's background. Clips the editor
/// while the prompt is still growing to the height of its text.
class WritingBox final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(WritingBox)

public:
    static constexpr qreal cornerRadius = 14;

    WritingBox(const Look &look, std::function<void()> heightChanged, QWidget *parent);

    [[nodiscard]] BareTextEditor &editor() { return *m_editor; }
    [[nodiscard]] double editorHeight() const { return m_editorHeight; }
    void setLook(const Look &look);

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    void layOutEditor();

    double m_editorHeight = EditorHeight::minimum;
    BareTextEditor *m_editor;
};

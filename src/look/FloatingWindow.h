// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Desktop.h"

#include <QWidget>

struct Look;

/// A window that draws its own frame: with a compositor, the frame has round corners and a shadow,
/// which is not part of the frame and lets clicks through.
class FloatingWindow : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FloatingWindow)

public:
    enum class Behind {
        Opaque, ///< no compositor: the window is opaque and has square corners
        Clear, ///< a compositor that does not blur
        Blurred,
    };

protected:
    /// @p desktop must outlive the window. @p cornerRadius is in logical pixels.
    FloatingWindow(const Desktop &desktop, qreal cornerRadius, Qt::WindowType type,
                   QWidget *parent = nullptr);

    [[nodiscard]] const Desktop &desktop() const { return m_desktop; }
    [[nodiscard]] Behind behind() const { return m_behind; }
    /// The frame in window coordinates.
    [[nodiscard]] QRect frame() const { return rect().marginsRemoved(m_shadowMargins); }
    void setFrameSize(const QSize &size);
    /// The position on the screen at which a frame of @p size would open now.
    [[nodiscard]] virtual QPoint openingPlace(const QSize &size) const = 0;
    void moveToOpeningPlace();
    /// Fills the frame with @p face and draws the shadow around it or, without a compositor, a rim
    /// inside it.
    void paintBackdrop(const QColor &face, const Look &look);

    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void followScreens();
    void changeScreen();
    void updateBackdrop();
    void announceShape();

    const Desktop &m_desktop;
    qreal m_cornerRadius;
    Behind m_behind;
    QMargins m_shadowMargins;
};

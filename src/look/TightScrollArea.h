// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

/// As large as its content if the screen has room for it, and otherwise as high as a window on that
/// screen can be; the content then scrolls, and the control with focus is scrolled into view.
class TightScrollArea final : public QScrollArea
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TightScrollArea)

public:
    /// Owns @p content.
    TightScrollArea(QWidget *content, QWidget *parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followScreen();

    QMetaObject::Connection m_followed;
};

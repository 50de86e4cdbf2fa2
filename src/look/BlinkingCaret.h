// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QObject>

class QPainter;
class QRect;
class QWidget;

/// The caret of a text, in the accent colour: the toolkit's has the inverted colour of what is
/// below it. Blinks like the desktop's others while the text has focus. The text hides the
/// toolkit's caret and draws this one.
class BlinkingCaret final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BlinkingCaret)

public:
    static constexpr int width = 1; // in logical pixels

    /// @p text owns this object, and is painted again whenever the caret appears or disappears.
    explicit BlinkingCaret(QWidget &text);

    /// To be called whenever the caret has moved: it must be seen where it is now.
    void restart();
    /// Does nothing while the caret is not to be seen.
    void draw(QPainter &painter, const QRect &place) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void show(bool isOn);

    QWidget &m_text;
    QBasicTimer m_timer;
    bool m_isOn = false;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "look/Look.h"

#include <QWidget>

class CloseButton;
class ElidedLabel;
class QLabel;

/// The strip above a prompt's content: the close button, the time and the keyboard shortcuts.
class TitleStrip final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TitleStrip)

public:
    static constexpr int height = 28;

    TitleStrip(const QString &title, const Look &look, QWidget *parent);

    /// The keyboard shortcuts in words, for screen readers, which would skip the symbols.
    [[nodiscard]] static QString spokenHint();
    void setLook(const Look &look);

signals:
    void closeRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    CloseButton *m_closeButton;
    QLabel *m_title;
    ElidedLabel *m_hint;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

class Compositor;

/// A menu in our own look, drawn in the colours of its palette.
class Menu : public QMenu
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Menu)

public:
    /// @p compositor must outlive the menu. Until it is shown, it costs no more than the toolkit's
    /// own menu.
    explicit Menu(const Compositor &compositor, QWidget *parent = nullptr);
    ~Menu() override;

private:
    void followCompositor();
    void dressUp();

    const Compositor &m_compositor;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QLabel>
#include <QPalette>

/// The texts of our windows.
namespace Labels
{
/// Shows @p text as it stands, in the colour that the window's palette has for @p role. The caller
/// gives it a parent.
[[nodiscard]] QLabel *plain(const QString &text, const QFont &font, QPalette::ColorRole role);

/// The text of a button that Alt and its first letter press, too.
[[nodiscard]] QString withMnemonic(const QString &text);
} // namespace Labels

/// One line that leaves out its middle when it is too long for its place, and never asks for more
/// place than there is.
class ElidedLabel final : public QLabel
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ElidedLabel)

public:
    ElidedLabel(const QFont &font, QPalette::ColorRole role, QWidget *parent);

    [[nodiscard]] QSize minimumSizeHint() const override;
    /// Some of the text is left out.
    [[nodiscard]] bool isElided() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QString shownText() const;
};

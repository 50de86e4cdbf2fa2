// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QLabel>
#include <QPalette>
#include <QTextLayout>

/// Texts in our windows.
namespace Labels
{
/// A label with @p text as plain text, in the palette's colour for @p role. The caller must give it
/// a parent.
[[nodiscard]] QLabel *plain(const QString &text, const QFont &font, QPalette::ColorRole role);

/// @p text for a button whose mnemonic is the first letter.
[[nodiscard]] QString withMnemonic(const QString &text);
} // namespace Labels

/// A single-line label that elides the middle of its text if it is too long, and then shows the
/// whole text in a tooltip. It never requests more space than is available.
class ElidedLabel final : public QLabel
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ElidedLabel)

public:
    ElidedLabel(const QFont &font, QPalette::ColorRole role, QWidget *parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// Whether part of the text is left out.
    [[nodiscard]] bool isElided() const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// What the layout depends on.
    struct Basis {
        QString text;
        QFont font;
        int width = -1;

        bool operator==(const Basis &) const = default;
    };

    [[nodiscard]] QString shownText() const;
    void dressUpTooltip();
    void layOut();
    void setShown(const QString &text);

    Basis m_basis;
    /// Kept, because shaping a text takes far longer than drawing it.
    QTextLayout m_layout;
};

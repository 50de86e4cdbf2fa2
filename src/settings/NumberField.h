// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

#include <functional>

/// A number that is taken when it is committed: with Return, or when an edited text loses the focus
/// or the sight of its window.
class NumberField final : public QLineEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NumberField)

public:
    NumberField(std::function<void(const QString &)> committed, QWidget *parent);

    /// Sets the text as committed.
    void show(const QString &text);
    /// There is another text than the one shown, whether typed or set by assistive technology.
    [[nodiscard]] bool isEdited() const;
    /// Takes what is not committed yet, as when the focus goes.
    void commitIfEdited();

protected:
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void commit();

    std::function<void(const QString &)> m_committed;
    QString m_shown;
};

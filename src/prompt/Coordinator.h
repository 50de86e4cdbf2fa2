// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class QTextDocument;

/// What the owner of an editor lends it: where the height of the box is kept.
struct ContentHeight {
    std::function<double()> read;
    std::function<void(double)> write;
};

/// Tells the owner of an editor the height of its text after each edit.
class Coordinator final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Coordinator)

public:
    /// @p note must outlive this.
    Coordinator(const QTextDocument &note, ContentHeight contentHeight, QObject *parent);

    void textDidChange();
    void updateHeight();

private:
    const QTextDocument &m_note;
    ContentHeight m_contentHeight;
};

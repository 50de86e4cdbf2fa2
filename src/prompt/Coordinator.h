// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class QTextDocument;

/// Access to the height of the writing box (logical pixels), which the editor's owner stores.
struct ContentHeight {
    std::function<double()> read;
    std::function<void(double)> write;
};

/// Reports the height that the text needs to the editor's owner after each edit, if it differs from
/// the current one.
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

// SPDX-License-Identifier: MIT
#include "platform/generic/MessageBoxAlerts.h"

#include "platform/Windows.h"

#include <QDialogButtonBox>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>

namespace
{
class AlertBox final : public QMessageBox
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AlertBox)

public:
    AlertBox(const QString &messageText, const QString &informativeText, QWidget *over)
        : QMessageBox(Warning, messageText, messageText, Ok, over)
    {
        setTextFormat(Qt::PlainText);
        setInformativeText(informativeText);
        setWindowModality(Qt::ApplicationModal);
        setWindowFlag(Qt::WindowStaysOnTopHint);
        setUpLabels();
    }

protected:
    // A key that is still held from the prompt must not dismiss what nobody has read yet.
    void keyPressEvent(QKeyEvent *event) override
    {
        if (!event->isAutoRepeat()) {
            QMessageBox::keyPressEvent(event);
        }
    }

private:
    void setUpLabels()
    {
        // The toolkit's own names for its labels, the same in all of Qt 6.
        if (auto *const icon = findChild<QLabel *>(QStringLiteral("qt_msgboxex_icon_label"))) {
            icon->setAccessibleName(tr("Warning"));
        }
        // Else the box of the button counts as focused, too.
        if (auto *const buttons = findChild<QDialogButtonBox *>()) {
            buttons->setFocusProxy(nullptr);
        }
        if (auto *const title = findChild<QLabel *>(QStringLiteral("qt_msgbox_label"))) {
            QFont font = title->font();
            font.setBold(true);
            title->setFont(font);
            // The mouse can select it, but for the keys there is nothing to do in it.
            title->setFocusPolicy(Qt::NoFocus);
        }
        if (auto *const text = findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"))) {
            constexpr int comfortableLine = 280;
            text->setTextFormat(Qt::PlainText);
            text->setMinimumWidth(comfortableLine);
            text->setFocusPolicy(Qt::NoFocus);
        }
    }
};
} // namespace

void MessageBoxAlerts::warn(const QString &messageText, const QString &informativeText,
                            QWidget *over)
{
    const QPointer box = new AlertBox(messageText, informativeText, over);
    QEventLoop loop;
    QObject::connect(box, &QDialog::finished, &loop, &QEventLoop::quit);
    QObject::connect(box, &QObject::destroyed, &loop, &QEventLoop::quit);
    m_windows.present(*box);
    loop.exec();
    delete box;
}

#include "MessageBoxAlerts.moc"

// SPDX-License-Identifier: MIT
#include "platform/linux/layershell/DraggedPicture.h"

#include "platform/linux/layershell/roundTrip.h"

#include <QPainter>

namespace
{
/// Makes its parent transparent.
class Veil final : public QWidget
{
public:
    explicit Veil(QWidget &window)
        : QWidget(&window)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(window.rect());
        show();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(rect(), Qt::transparent);
    }
};
} // namespace

DraggedPicture::DraggedPicture(QWidget &window)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowTransparentForInput)
    , m_window(window)
    , m_picture(window.size() * window.devicePixelRatioF())
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setScreen(window.screen());
    setFixedSize(window.size());
    m_picture.setDevicePixelRatio(window.devicePixelRatioF());
    m_picture.fill(Qt::transparent);
    window.render(&m_picture);
}

DraggedPicture::~DraggedPicture()
{
    delete m_veil;
}

void DraggedPicture::replaceWindow()
{
    show();
    afterNextFrame(*this, *this, [this] { m_veil = new Veil(m_window); });
}

void DraggedPicture::showWindow()
{
    delete m_veil;
}

void DraggedPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawPixmap(0, 0, m_picture);
}

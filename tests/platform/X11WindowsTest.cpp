// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Windows.h"

#include "support/X11Peer.h"

#include <QSignalSpy>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <array>
#include <cmath>
#include <xcb/shape.h>

using namespace Qt::StringLiterals;

namespace
{
using Numbers = QList<uint32_t>;

constexpr auto blurProperty = "_KDE_NET_WM_BLUR_BEHIND_REGION";

xcb_window_t identifier(const QWidget &window)
{
    return static_cast<xcb_window_t>(window.windowHandle()->winId());
}

Numbers numbersIn(const QWidget &window, const QByteArray &property)
{
    const QByteArray bytes = Xcb::property(identifier(window), property);
    const auto *const first = reinterpret_cast<const uint32_t *>(bytes.constData());
    return {first, first + (bytes.size() / qsizetype{sizeof(uint32_t)})};
}

bool isOutOfTaskbarAndPager(const QWidget &window)
{
    const Numbers states = numbersIn(window, "_NET_WM_STATE");
    return states.contains(Xcb::atom("_NET_WM_STATE_SKIP_TASKBAR"))
        && states.contains(Xcb::atom("_NET_WM_STATE_SKIP_PAGER"));
}

QRect inputRect(const QWidget &window)
{
    auto *const connection = Xcb::connection();
    const Xcb::Owned<xcb_shape_get_rectangles_reply_t> reply(xcb_shape_get_rectangles_reply(
        connection, xcb_shape_get_rectangles(connection, identifier(window), XCB_SHAPE_SK_INPUT),
        nullptr));
    if (!reply || xcb_shape_get_rectangles_rectangles_length(reply.get()) != 1) {
        return {};
    }
    const xcb_rectangle_t *const rectangle = xcb_shape_get_rectangles_rectangles(reply.get());
    return {rectangle->x, rectangle->y, rectangle->width, rectangle->height};
}
} // namespace

class X11WindowsTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_peer = std::make_unique<X11Peer>();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(100, 80, 300, 200);
    }

    void presented_asksForTheFocusAsAPagerDoes()
    {
        m_windows.present(*m_window);
        QTRY_COMPARE(m_peer->messages("_NET_ACTIVE_WINDOW").size(), 1);
        const auto asked = m_peer->messages("_NET_ACTIVE_WINDOW").constFirst();
        QCOMPARE(asked.window, identifier(*m_window));
        constexpr uint32_t pager = 2;
        QCOMPARE(asked.data.data32[0], pager);
        QCOMPARE(asked.data.data32[1], uint32_t{XCB_CURRENT_TIME});
    }

    void shownInactive_doesNotAskForTheFocus()
    {
        m_windows.showInactive(*m_window);
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QVERIFY(m_peer->messages("_NET_ACTIVE_WINDOW").isEmpty());
        QVERIFY(!m_window->testAttribute(Qt::WA_ShowWithoutActivating));
    }

    void shown_isOutOfTaskbarAndPager_eachTime()
    {
        for (int times = 2; times > 0; --times) {
            m_windows.present(*m_window);
            QVERIFY(isOutOfTaskbarAndPager(*m_window));
            m_window->hide();
            m_windows.showInactive(*m_window);
            QVERIFY(isOutOfTaskbarAndPager(*m_window));
            m_window->hide();
        }
    }

    void dialog_canBeMovedAndClosedAlone()
    {
        m_window->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                                 | Qt::WindowCloseButtonHint);
        m_windows.present(*m_window);
        // MwmUtil.h: functions and decorations are told; to move and to close; border and title
        QCOMPARE(numbersIn(*m_window, "_MOTIF_WM_HINTS"), (Numbers{3, 36, 10, 0, 0}));
    }

    void card_hasNoSuchHints()
    {
        m_windows.present(*m_window);
        QVERIFY(numbersIn(*m_window, "_MOTIF_WM_HINTS") != (Numbers{3, 36, 10, 0, 0}));
    }

    void shadow_isToldToTheWindowManager_andLetsClicksThrough()
    {
        m_windows.present(*m_window);
        m_windows.setShadow(*m_window, {20, 24, 28, 32});
        QCOMPARE(numbersIn(*m_window, "_GTK_FRAME_EXTENTS"),
                 (Numbers{inPixels(20), inPixels(28), inPixels(24), inPixels(32)}));
        QCOMPARE(inputRect(*m_window),
                 QRect(scaled(20), scaled(24), scaled(300 - 48), scaled(200 - 56)));
    }

    void blurredRegion_isToldStripByStrip()
    {
        m_windows.present(*m_window);
        m_windows.setBlurBehind(*m_window, QRegion(8, 4, 284, 4) + QRegion(4, 8, 292, 180));
        QCOMPARE(numbersIn(*m_window, blurProperty),
                 (Numbers{inPixels(8), inPixels(4), inPixels(284), inPixels(4), inPixels(4),
                          inPixels(8), inPixels(292), inPixels(180)}));
    }

    void noBlurredRegion_isNoProperty()
    {
        m_windows.present(*m_window);
        m_windows.setBlurBehind(*m_window, QRegion(0, 0, 8, 8));
        m_windows.setBlurBehind(*m_window, QRegion());
        QVERIFY(numbersIn(*m_window, blurProperty).isEmpty());
    }

    void openWindow_isOpenedAnew_onSwayAlone_data()
    {
        QTest::addColumn<QByteArray>("manager");
        QTest::addColumn<bool>("isActive");
        QTest::addColumn<bool>("opensAnew");
        QTest::newRow("sway, inactive") << QByteArray("wlroots wm") << false << true;
        QTest::newRow("sway, active") << QByteArray("wlroots wm") << true << false;
        QTest::newRow("another, inactive") << QByteArray("KWin") << false << false;
    }
    void openWindow_isOpenedAnew_onSwayAlone()
    {
        QFETCH(const QByteArray, manager);
        QFETCH(const bool, isActive);
        QFETCH(const bool, opensAnew);
        m_windows.present(*m_window);
        m_peer->setWindow(Xcb::root(), "_NET_SUPPORTING_WM_CHECK", m_peer->window());
        m_peer->setText(m_peer->window(), "_NET_WM_NAME", manager);
        m_peer->setWindow(Xcb::root(), "_NET_ACTIVE_WINDOW",
                          isActive ? identifier(*m_window) : m_peer->window());
        const QSignalSpy visibility(m_window->windowHandle(), &QWindow::visibleChanged);
        m_windows.present(*m_window);
        QCOMPARE(visibility.size(), opensAnew ? 2 : 0);
        QVERIFY(m_window->isVisible());
    }

    void withdrawn_comesBackAsANewWindow()
    {
        m_windows.present(*m_window);
        const xcb_window_t earlier = identifier(*m_window);
        m_windows.withdraw(*m_window);
        QVERIFY(!m_window->isVisible());
        m_windows.present(*m_window);
        QVERIFY(identifier(*m_window) != earlier);
        m_windows.setShadow(*m_window, {4, 4, 4, 4});
        QCOMPARE(numbersIn(*m_window, "_GTK_FRAME_EXTENTS").size(), 4);
    }

    void place_isKept_untilTheWindowIsSeen()
    {
        m_windows.place(*m_window, {50, 60});
        m_window->move(0, 0);
        m_windows.present(*m_window);
        QCOMPARE(m_window->pos(), QPoint(50, 60));
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_window->repaint();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_window->move(10, 20);
        m_window->resize(200, 120);
        QCOMPARE(m_window->pos(), QPoint(10, 20));
    }

    void cleanup()
    {
        m_peer->removeProperty(Xcb::root(), "_NET_SUPPORTING_WM_CHECK");
        m_peer->removeProperty(Xcb::root(), "_NET_ACTIVE_WINDOW");
        m_window.reset();
        m_peer.reset();
    }

private:
    [[nodiscard]] int scaled(int logical) const
    {
        return static_cast<int>(std::lround(logical * m_window->devicePixelRatioF()));
    }
    [[nodiscard]] uint32_t inPixels(int logical) const
    {
        return static_cast<uint32_t>(scaled(logical));
    }

    X11Windows m_windows;
    std::unique_ptr<X11Peer> m_peer;
    std::unique_ptr<QWidget> m_window;
};

QTEST_MAIN(X11WindowsTest)
#include "X11WindowsTest.moc"

// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Compositor.h"

#include "support/X11Peer.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace
{
constexpr auto selection = "_NET_WM_CM_S0";
constexpr auto blur = "_KDE_NET_WM_BLUR_BEHIND_REGION";
} // namespace

class X11CompositorTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QCoreApplication::processEvents(); // of the peer before
        m_peer = std::make_unique<X11Peer>();
    }

    void withoutAnOwner_noneRuns()
    {
        QVERIFY(!X11Compositor().isRunning());
        m_peer->own("_NET_WM_CM_S1"); // of another screen
        QVERIFY(!X11Compositor().isRunning());
    }

    void owner_isTheCompositor()
    {
        m_peer->own(selection);
        QVERIFY(X11Compositor().isRunning());
    }

    void startAndEnd_areAnnounced()
    {
        const X11Compositor compositor;
        QVERIFY(!compositor.isRunning());
        QSignalSpy changes(&compositor, &Compositor::changed);
        m_peer->own(selection);
        QVERIFY(changes.wait());
        QVERIFY(compositor.isRunning());
        m_peer->disown(selection);
        QTRY_VERIFY(!compositor.isRunning());
        QCOMPARE(changes.size(), 2);
    }

    void crash_isAnnounced()
    {
        m_peer->own(selection);
        const X11Compositor compositor;
        QVERIFY(compositor.isRunning());
        QSignalSpy changes(&compositor, &Compositor::changed);
        m_peer.reset();
        QVERIFY(changes.wait());
        QVERIFY(!compositor.isRunning());
    }

    void otherSelections_areNotAnnounced()
    {
        const X11Compositor compositor;
        QVERIFY(!compositor.isRunning());
        const QSignalSpy changes(&compositor, &Compositor::changed);
        m_peer->own("_NET_SYSTEM_TRAY_S0");
        m_peer->own(selection);
        QTRY_VERIFY(compositor.isRunning());
        QCOMPARE(changes.size(), 1);
    }

    void blur_isWhatACompositorSays()
    {
        const X11Compositor compositor;
        m_peer->setText(Xcb::root(), blur, "");
        QVERIFY(!compositor.blursBehind()); // left over from one that has ended
        m_peer->own(selection);
        QTRY_VERIFY(compositor.isRunning());
        QVERIFY(compositor.blursBehind());
        m_peer->removeProperty(Xcb::root(), blur);
        QVERIFY(!compositor.blursBehind());
    }

    void cleanup() { m_peer.reset(); }

private:
    std::unique_ptr<X11Peer> m_peer;
};

QTEST_MAIN(X11CompositorTest)
#include "X11CompositorTest.moc"

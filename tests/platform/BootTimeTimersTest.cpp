// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/BootTimeTimers.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QMenu>
#include <QTest>

#include <cerrno>
#include <dlfcn.h>
#include <sys/timerfd.h>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

namespace
{
bool hasDescriptors = true;
} // namespace

// Stands before the C library's own.
extern "C" int timerfd_create(clockid_t clock, int flags) noexcept
{
    static const auto real
        = reinterpret_cast<int (*)(clockid_t, int)>(dlsym(RTLD_NEXT, "timerfd_create"));
    if (!hasDescriptors) {
        errno = EMFILE;
        return -1;
    }
    return real(clock, flags);
}

class BootTimeTimersTest final : public QObject
{
    Q_OBJECT

private slots:
    void timer_repeats()
    {
        int calls = 0;
        const auto timer = BootTimeTimers().repeat(1s, [&] { ++calls; });
        QTRY_VERIFY(calls >= 2);
    }

    void timer_isNeverEarly()
    {
        QElapsedTimer elapsed;
        elapsed.start();
        int calls = 0;
        const auto timer = BootTimeTimers().repeat(1s, [&] { ++calls; });
        QTRY_COMPARE(calls, 1);
        QVERIFY(std::chrono::milliseconds(elapsed.elapsed()) >= 1s);
    }

    void remainingTime_isCountedDown()
    {
        const auto timer = BootTimeTimers().repeat(1h, [] {});
        QVERIFY(timer->remaining() <= 1h);
        QVERIFY(timer->remaining() > 59min); // the test takes less than a minute
        QTRY_VERIFY(timer->remaining() < 1h);
    }

    void timer_firesWhileAMenuIsOpen()
    {
        QMenu menu;
        menu.addAction(u"x"_s);
        const auto timer = BootTimeTimers().repeat(1s, [&] { menu.close(); });
        menu.exec(); // returns only once the timer has fired
        QVERIFY(!menu.isVisible());
    }

    void timer_firesWhileADialogIsModal()
    {
        QDialog dialog;
        const auto timer = BootTimeTimers().repeat(1s, [&] { dialog.accept(); });
        QCOMPARE(dialog.exec(), QDialog::Accepted); // returns only once the timer has fired
    }

    void intervalsPassedTogether_areOneCall()
    {
        int calls = 0;
        const auto timer = BootTimeTimers().repeat(1s, [&] { ++calls; });
        // Blocks the event loop for three intervals, like a sleeping computer.
        QElapsedTimer elapsed;
        elapsed.start();
        while (std::chrono::milliseconds(elapsed.elapsed()) < 3500ms) { }
        QCoreApplication::processEvents();
        QCOMPARE(calls, 1);
        elapsed.start();
        QTRY_COMPARE(calls, 2);
        QVERIFY(std::chrono::milliseconds(elapsed.elapsed())
                >= 900ms); // a full interval after the late call
    }

    void longIntervals_doNotComeEarly()
    {
        int calls = 0;
        std::vector<std::unique_ptr<RepeatingTimer>> timers;
        // One that overflows 32-bit milliseconds, and the largest that passes the overflow check.
        const auto largest = std::chrono::seconds(std::numeric_limits<qint64>::max() / 60 * 60);
        for (const std::chrono::seconds interval :
             {std::chrono::seconds(100000min), std::chrono::seconds(4294967s), largest}) {
            timers.push_back(BootTimeTimers().repeat(interval, [&] { ++calls; }));
        }
        bool isShortOneOver = false;
        const auto shortOne = BootTimeTimers().repeat(1s, [&] { isShortOneOver = true; });
        QTRY_VERIFY(isShortOneOver);
        QCOMPARE(calls, 0);
    }

    void action_mayReplaceItsTimer()
    {
        int calls = 0;
        std::unique_ptr<RepeatingTimer> timer;
        std::function<void()> restart = [&] {
            ++calls;
            timer = BootTimeTimers().repeat(1s, restart);
        };
        restart();
        QTRY_VERIFY(calls >= 3);
    }

    void destroyed_neverFires()
    {
        int calls = 0;
        BootTimeTimers().repeat(1s, [&] { ++calls; }).reset();
        bool isOtherOver = false;
        const auto other = BootTimeTimers().repeat(2s, [&] { isOtherOver = true; });
        QTRY_VERIFY(isOtherOver);
        QCOMPARE(calls, 0);
    }

    void withoutDescriptors_promptsComeAllTheSame()
    {
        int calls = 0;
        hasDescriptors = false;
        const auto timer = BootTimeTimers().repeat(1s, [&calls] { ++calls; });
        hasDescriptors = true;
        QVERIFY(timer->remaining() > 0s);
        QTRY_VERIFY(calls >= 2);
    }
};

QTEST_MAIN(BootTimeTimersTest)
#include "BootTimeTimersTest.moc"

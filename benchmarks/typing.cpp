// SPDX-License-Identifier: MIT
// Compares the cost of a keystroke in the prompt with the toolkit's bare text widget, in the same
// run: this process's processor time for handling the key, measuring the text and repainting.
#include "look/Fonts.h"
#include "look/Look.h"
#include "prompt/BareTextEditor.h"
#include "prompt/Coordinator.h"
#include "prompt/PromptView.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace
{
/// Only its defaults matter here.
class PlainAppearance final : public Appearance
{
public:
    [[nodiscard]] ColorScheme colorScheme() const override { return ColorScheme::Light; }
    [[nodiscard]] QColor accent() const override { return {}; }
    [[nodiscard]] bool wantsHighContrast() const override { return false; }
    [[nodiscard]] bool wantsReducedMotion() const override { return true; }
    void windowsWillOpen() override { }
};

double cpuMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

enum class Caret { Start, Middle, End };

void placeCaret(QPlainTextEdit &editor, Caret caret)
{
    QTextCursor cursor = editor.textCursor();
    cursor.movePosition(QTextCursor::End);
    if (caret != Caret::End) {
        cursor.setPosition(caret == Caret::Start ? 0 : cursor.position() / 2);
    }
    editor.setTextCursor(cursor);
    editor.ensureCursorVisible();
    QCoreApplication::processEvents();
}

double costOfAKey(QPlainTextEdit &editor)
{
    const double before = cpuMilliseconds();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    QCoreApplication::sendEvent(&editor, &press);
    QCoreApplication::processEvents();
    return cpuMilliseconds() - before;
}

double median(std::vector<double> &values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Alternates between the two editors, so that changes in the machine's load affect both alike.
void compare(const char *what, const QString &text, QPlainTextEdit &ours, QPlainTextEdit &bare,
             int keys)
{
    for (const auto &[caret, place] :
         {std::pair(Caret::Start, "start"), std::pair(Caret::Middle, "middle"),
          std::pair(Caret::End, "end")}) {
        for (QPlainTextEdit *const editor : {&ours, &bare}) {
            editor->setPlainText(text);
            placeCaret(*editor, caret);
        }
        std::vector<double> oursCosts;
        std::vector<double> bareCosts;
        for (int key = 0; key < keys; ++key) {
            oursCosts.push_back(costOfAKey(ours));
            bareCosts.push_back(costOfAKey(bare));
        }
        const double our = median(oursCosts);
        const double their = median(bareCosts);
        std::printf("%-26s %-7s %9.3f %9.3f %6.2f\n", what, place, our, their, our / their);
    }
}

double costOfPasting(QPlainTextEdit &editor, const QString &text)
{
    editor.clear();
    QGuiApplication::clipboard()->setText(text);
    QCoreApplication::processEvents();
    const double before = cpuMilliseconds();
    editor.paste();
    QCoreApplication::processEvents();
    return cpuMilliseconds() - before;
}

QString lines(int bytes)
{
    const QString line = QStringLiteral("Long walk afterwards, the first in weeks.\n");
    return line.repeated(bytes / static_cast<int>(line.size()));
}

QString paragraph(int bytes)
{
    return lines(bytes).replace(u'\n', u' ');
}
QString word(int bytes)
{
    return QStringLiteral("giantword").repeated(bytes / 9);
}
} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const PlainAppearance appearance;
    PromptView view(
        {.onSubmit = [](const QString &) {}, .onCancel = [] {}},
        [&view] { view.resize(view.sizeHint()); }, look(appearance, ColorScheme::Light), nullptr);
    view.resize(view.sizeHint());
    view.show();
    auto &ours = *view.findChild<BareTextEditor *>();

    QPlainTextEdit bare;
    bare.setFont(systemFont(FontSizes::note));
    bare.setFrameShape(QFrame::NoFrame);
    bare.document()->setDocumentMargin(0);
    bare.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    bare.resize(ours.width(), 289);
    bare.show();
    ours.setFocus();
    QCoreApplication::processEvents();

    constexpr int kilo = 1000;
    constexpr int manyKeys = 300;
    constexpr int fewKeys = 9;
    std::printf("%-26s %-7s %9s %9s %6s\n", "note", "caret", "prompt ms", "bare ms", "ratio");
    compare("empty", QString(), ours, bare, manyKeys);
    compare("10 KB of lines", lines(10 * kilo), ours, bare, manyKeys);
    compare("100 KB of lines", lines(100 * kilo), ours, bare, manyKeys);
    compare("1 MB of lines", lines(1000 * kilo), ours, bare, manyKeys);
    compare("10 KB in one paragraph", paragraph(10 * kilo), ours, bare, manyKeys / 3);
    compare("100 KB in one paragraph", paragraph(100 * kilo), ours, bare, fewKeys);

    compare("250 KB in one word", word(250 * kilo), ours, bare, 3);

    const QString megabyte = lines(1000 * kilo);
    std::printf("%-26s %-7s %9.1f %9.1f\n", "pasting 1 MB of lines", "",
                costOfPasting(ours, megabyte), costOfPasting(bare, megabyte));
    const QString longWord = word(250 * kilo);
    std::printf("%-26s %-7s %9.1f %9.1f\n", "pasting 250 KB in one word", "",
                costOfPasting(ours, longWord), costOfPasting(bare, longWord));
    // The bare widget takes minutes.
    std::printf("%-26s %-7s %9.1f\n", "pasting 1 MB in one word", "",
                costOfPasting(ours, word(1000 * kilo)));
    return 0;
}

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
         {std::pair(Caret::Start, "at the start"), std::pair(Caret::Middle, "in the middle"),
          std::pair(Caret::End, "at the end")}) {
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
        std::printf("| a key in %s, %s, ms of processor time | %.3f | %.3f | %.2f |\n", what, place,
                    our, their, our / their);
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

void comparePasting(const char *what, const QString &text, QPlainTextEdit &ours,
                    QPlainTextEdit &bare)
{
    const double our = costOfPasting(ours, text);
    const double their = costOfPasting(bare, text);
    std::printf("| pasting %s, ms of processor time | %.1f | %.1f | %.2f |\n", what, our, their,
                our / their);
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
    compare("an empty note", QString(), ours, bare, manyKeys);
    compare("10 KB of lines", lines(10 * kilo), ours, bare, manyKeys);
    compare("100 KB of lines", lines(100 * kilo), ours, bare, manyKeys);
    compare("1 MB of lines", lines(1000 * kilo), ours, bare, manyKeys);
    compare("a paragraph of 10 KB", paragraph(10 * kilo), ours, bare, manyKeys / 3);
    compare("a paragraph of 100 KB", paragraph(100 * kilo), ours, bare, fewKeys);

    compare("a word of 250 KB", word(250 * kilo), ours, bare, 3);

    comparePasting("1 MB of lines", lines(1000 * kilo), ours, bare);
    comparePasting("a word of 250 KB", word(250 * kilo), ours, bare);
    // The bare widget takes minutes.
    std::printf("| pasting a word of 1 MB, ms of processor time | %.1f | | |\n",
                costOfPasting(ours, word(1000 * kilo)));
    return 0;
}

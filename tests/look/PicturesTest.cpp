// SPDX-License-Identifier: MIT
// Compares what the windows look like in all their states with the pictures in tests/pictures, in
// both looks. TOVLA_WRITE_PICTURES=1 writes them anew; look at each change before keeping it. The
// scale is the toolkit's: QT_SCALE_FACTOR.
#include "look/AlertWindow.h"
#include "look/Menu.h"
#include "menubar/MenuContent.h"
#include "menubar/menuBarIcon.h"
#include "settings/SettingsView.h"
#include "support/AppStateForTests.h"
#include "updates/UpdateWindow.h"
#include "updates/UpdaterController.h"

#include <QComboBox>
#include <QDir>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace
{
// In steps of 255: what two machines may differ by in the blending of one pixel.
constexpr int tolerance = 2;

AppState *shared = nullptr;

int difference(QRgb one, QRgb other)
{
    return std::max({qAbs(qRed(one) - qRed(other)), qAbs(qGreen(one) - qGreen(other)),
                     qAbs(qBlue(one) - qBlue(other)), qAbs(qAlpha(one) - qAlpha(other))});
}

/// The number of pixels that differ; -1 if the sizes do.
int differingPixels(const QImage &one, const QImage &other)
{
    if (one.size() != other.size()) {
        return -1;
    }
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const bool differs = difference(one.pixel(x, y), other.pixel(x, y)) > tolerance;
            count += differs ? 1 : 0;
        }
    }
    return count;
}
} // namespace

class PicturesTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Other versions of the toolkit and of FreeType place and blend letters differently.
        if (QLatin1StringView(qVersion()) != QLatin1StringView("6.4.2")) {
            QSKIP("the pictures are those of Debian 12");
        }
        QFont font(u"DejaVu Sans"_s);
        font.setHintingPreference(QFont::PreferNoHinting);
        QApplication::setFont(font);
        QApplication::setCursorFlashTime(0);
        QCoreApplication::setApplicationVersion(u"1.0"_s);
    }

    void init()
    {
        m_place = std::make_unique<QTemporaryDir>();
        m_desktop = std::make_unique<TestDesktop>();
        m_desktop->isComposited = false; // no shadow, so each window is its frame and has its rim
        m_state = std::make_unique<AppStateForTests>(*m_desktop);
        shared = &**m_state;
        m_updater = std::make_unique<UpdaterController>([]() -> AppState & { return *shared; });
        packages().installed = TestPackageManager::tovla(u"1.0"_s);
        packages().newer = TestPackageManager::tovla(u"1.1"_s);
        packages().notes = u"- New bells.\n- Notes are saved twice as fast, and on more drives "
                           "than before, such as those of a server.\n\nThanks to all who helped."_s;
    }

    void cleanup()
    {
        m_updater.reset();
        m_state.reset();
    }

    void pictures_data()
    {
        QTest::addColumn<Scene>("scene");
        QTest::addColumn<bool>("isDark");
        const auto add = [](const char *name, const Scene &scene) {
            QTest::addRow("%s-light", name) << scene << false;
            QTest::addRow("%s-dark", name) << scene << true;
        };
        addCards(add);
        addSettings(add);
        addUpdates(add);
        add("alert", [this] { return alert(); });
        add("menu", [this] { return menu(); });
        add("tray-icon", [this] { return trayIcons(); });
    }

    void pictures()
    {
        QFETCH(const Scene, scene);
        QFETCH(const bool, isDark);
        m_desktop->setColorScheme(isDark ? ColorScheme::Dark : ColorScheme::Light);
        const QImage seen = scene().convertToFormat(QImage::Format_ARGB32);
        QVERIFY(!seen.isNull());
        const QString path = pathOf(QString::fromUtf8(QTest::currentDataTag()));
        const int differing = differingPixels(seen, QImage(path));
        if (differing == 0) {
            return;
        }
        const bool isWanted = qEnvironmentVariableIsSet("TOVLA_WRITE_PICTURES");
        const QString kept = isWanted ? path : QDir::current().filePath(QFileInfo(path).fileName());
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        constexpr int smallest = 0; // of compressed files
        QVERIFY(seen.save(kept, "PNG", smallest));
        QVERIFY2(isWanted,
                 qPrintable(u"%1 pixels differ from %2: %3"_s.arg(differing).arg(path, kept)));
    }

private:
    using Scene = std::function<QImage()>;
    using Add = std::function<void(const char *name, const Scene &scene)>;

    static QString scaleText() { return QString::number(qGuiApp->devicePixelRatio()); }
    static QString pathOf(const QString &name)
    {
        return QStringLiteral(TOVLA_SOURCE_DIR "/tests/pictures/%1/%2.png").arg(scaleText(), name);
    }
    [[nodiscard]] TestPackageManager &packages() const { return *m_desktop->packageManager; }

    static QImage pictureOf(QWidget &window)
    {
        if (!QTest::qWaitForWindowActive(&window)) {
            return {};
        }
        QCoreApplication::processEvents();
        return window.grab().toImage();
    }

    void addCards(const Add &add)
    {
        const QString line = u"Long walk afterwards, the first in weeks."_s;
        add("card-empty", [this] { return card({}); });
        add("card-one-line", [=, this] { return card(line); });
        add("card-three-lines", [=, this] { return card(line.repeated(3)); });
        add("card-full", [=, this] { return card((line + u'\n').repeated(30)); });
        add("card-theme-light", [=, this] {
            (*m_state)->setTheme(ThemePreference::light);
            return card(line);
        });
        add("card-theme-dark", [=, this] {
            (*m_state)->setTheme(ThemePreference::dark);
            return card(line);
        });
        add("card-glass", [=, this] {
            m_desktop->setComposited(true);
            return card(line);
        });
        add("card-right-to-left", [this] { return card(u"שלום\nabc"_s); });
        add("card-selection",
            [=, this] { return card(line, [](QPlainTextEdit &editor) { editor.selectAll(); }); });
        add("card-composition", [=, this] {
            return card(u"Long "_s, [](QPlainTextEdit &editor) {
                QTextCharFormat underlined;
                underlined.setFontUnderline(true);
                QInputMethodEvent composition(u"walk"_s,
                                              {{QInputMethodEvent::TextFormat, 0, 4, underlined}});
                QCoreApplication::sendEvent(&editor, &composition);
            });
        });
    }

    QImage card(const QString &text, const std::function<void(QPlainTextEdit &)> &act = {})
    {
        (*m_state)->setFolderPath(m_place->filePath(u"Journal"_s));
        (*m_state)->showPrompt();
        QWidget &window = *m_state->promptWindow();
        auto &editor = *window.findChild<QPlainTextEdit *>();
        (void)QTest::qWaitForWindowActive(&window);
        editor.insertPlainText(text);
        if (act) {
            act(editor);
        }
        return pictureOf(window);
    }

    void addSettings(const Add &add)
    {
        add("settings-first", [this] { return settings(); });
        add("settings-folder", [this] { return settings(u"/home/ann/Journal"_s); });
        add("settings-long-path", [this] {
            return settings(u"/home/ann/"_s + u"a folder with a long name/"_s.repeated(4));
        });
        add("settings-theme-light", [this] { return settingsIn(ThemePreference::light); });
        add("settings-theme-dark", [this] { return settingsIn(ThemePreference::dark); });
        add("settings-high-contrast", [this] {
            m_desktop->wantsHighContrast = true;
            return settings(u"/home/ann/Journal"_s);
        });
        addFocus(add, "button",
                 [](QWidget &w) -> QWidget * { return w.findChild<QPushButton *>(); });
        addFocus(add, "number", [](QWidget &w) -> QWidget * { return w.findChild<QLineEdit *>(); });
        addFocus(add, "theme",
                 [](QWidget &w) -> QWidget * { return w.findChild<QRadioButton *>(); });
        addFocus(add, "sound", [](QWidget &w) -> QWidget * { return w.findChild<QComboBox *>(); });
        add("settings-list", [this] { return soundList(); });
    }

    void addFocus(const Add &add, const char *name,
                  const std::function<QWidget *(QWidget &)> &control)
    {
        add(qPrintable(u"settings-focus-%1"_s.arg(QLatin1StringView(name))), [=, this] {
            (void)settings();
            QWidget &window = *m_state->settingsWindow();
            // Unlike setFocus, this shows the focus. Twice around at most.
            int tabs = 20;
            do {
                QTest::keyClick(&window, Qt::Key_Tab);
            } while (!control(window)->hasFocus() && --tabs > 0);
            return pictureOf(window);
        });
    }

    QImage settings(const QString &folder = {})
    {
        if (!folder.isEmpty()) {
            (*m_state)->setFolderPath(folder);
        }
        (*m_state)->showSettings();
        return pictureOf(*m_state->settingsWindow());
    }

    QImage settingsIn(ThemePreference theme)
    {
        (*m_state)->setTheme(theme);
        return settings();
    }

    QImage soundList()
    {
        (void)settings();
        auto &popUp = *m_state->settingsWindow()->findChild<QComboBox *>();
        popUp.showPopup();
        QWidget *const list = QApplication::activePopupWidget();
        return list ? list->grab().toImage() : QImage();
    }

    void addUpdates(const Add &add)
    {
        add("update-available", [this] { return update({}); });
        add("update-none", [this] {
            packages().newer.reset();
            return update({});
        });
        add("update-failed", [this] {
            packages().newer.reset();
            packages().outcomes[u"refreshSources"_s]
                = {PackageManager::Failure::other, u"the mirror did not answer"_s};
            return update({});
        });
        add("update-downloading", [this] {
            return update([this] {
                packages().heldAt = u"install"_s;
                QTest::keyClick(m_updater->window(), Qt::Key_Return);
                packages().tell(
                    {.step = PackageManager::Progress::Step::downloading, .percentage = 40});
            });
        });
        add("update-installed", [this] {
            return update([this] { QTest::keyClick(m_updater->window(), Qt::Key_Return); });
        });
    }

    QImage update(const std::function<void()> &act)
    {
        m_updater->checkForUpdates();
        if (act) {
            act();
        }
        return pictureOf(*m_updater->window());
    }

    QImage alert()
    {
        QWidget over;
        over.setGeometry(100, 100, 560, 104);
        over.show();
        AlertWindow window((*m_state)->desktop(), u"Journal"_s,
                           u"Could not save entry: The file “2026-11-15.md” is not writable."_s,
                           &over);
        window.show();
        return pictureOf(window);
    }

    QImage menu()
    {
        (*m_state)->setFolderPath(u"/home/ann/Journal"_s);
        MenuContent content(**m_state);
        content.popup({});
        content.setActiveAction(content.actions().at(2));
        return content.grab().toImage();
    }

    [[nodiscard]] QImage trayIcons() const
    {
        const qreal ratio = qGuiApp->devicePixelRatio();
        QImage picture((QSizeF(288, 64) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(ratio);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        const bool isLight = m_desktop->colorScheme == ColorScheme::Light;
        const QIcon icon = MenuBarIcon::icon(isLight ? Qt::black : Qt::white);
        int x = 0;
        for (const int size : {16, 18, 22, 24, 32, 48, 64}) {
            icon.paint(&painter, x, 0, size, size);
            x += size + 8;
        }
        return picture;
    }

    std::unique_ptr<QTemporaryDir> m_place;
    std::unique_ptr<TestDesktop> m_desktop;
    std::unique_ptr<AppStateForTests> m_state;
    std::unique_ptr<UpdaterController> m_updater;
};

QTEST_MAIN(PicturesTest)
#include "PicturesTest.moc"

// SPDX-License-Identifier: MIT
#include "platform/linux/portal/PortalAppearance.h"

#include "platform/linux/portal/Portal.h"
#include "support/SessionBusFixture.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace
{
const QString settings = u"org.freedesktop.portal.Settings"_s;
const QString space = u"org.freedesktop.appearance"_s;

/// What the toolkit says.
class ToolkitSays final : public Appearance
{
public:
    [[nodiscard]] ColorScheme colorScheme() const override { return ColorScheme::Dark; }
    [[nodiscard]] QColor accent() const override { return Qt::red; }
    [[nodiscard]] bool wantsHighContrast() const override { return true; }
    [[nodiscard]] bool wantsReducedMotion() const override { return true; }
    void windowsWillOpen() override { }
};

QVariant rgb(double red, double green, double blue)
{
    QDBusArgument color;
    color.beginStructure();
    color << red << green << blue;
    color.endStructure();
    return QVariant::fromValue(color);
}

/// As current portals answer Read: a variant in a variant.
QVariant inVariant(const QVariant &value)
{
    return QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(value))));
}
} // namespace

class PortalAppearanceTest final : public SessionBusFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        m_values.clear();
        m_portal = std::make_unique<BusPeer>(Portal::service);
        m_portal->answer = [this](const QDBusMessage &call) {
            const QVariant value = m_values.value(call.arguments().value(1).toString());
            return value.isValid()
                ? call.createReply(value)
                : call.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, u"none"_s);
        };
    }

    void start_readsTheSchemeAlone()
    {
        m_values = {{u"color-scheme"_s, inVariant(2U)}};
        open();
        QCOMPARE(m_appearance->colorScheme(), ColorScheme::Dark); // until the portal answers
        QTRY_COMPARE(m_appearance->colorScheme(), ColorScheme::Light);
        QCOMPARE(m_changes->size(), 1);
        QCOMPARE(m_portal->calls.size(), 1);
        QCOMPARE(m_portal->lastCall(), settings + u".Read(ss)"_s);
        QCOMPARE(m_portal->calls.constFirst().path(), Portal::path);
        QCOMPARE(m_portal->calls.constFirst().arguments(),
                 (QVariantList{space, u"color-scheme"_s}));
    }

    void rest_isReadBeforeTheFirstWindow()
    {
        m_values = {{u"color-scheme"_s, inVariant(1U)},
                    {u"accent-color"_s, inVariant(rgb(0, 0.5, 1))},
                    {u"contrast"_s, inVariant(1U)},
                    {u"reduced-motion"_s, inVariant(1U)}};
        open();
        m_appearance->windowsWillOpen();
        m_appearance->windowsWillOpen();
        QTRY_COMPARE(m_changes->size(), 4);
        QCOMPARE(m_portal->calls.size(), 5); // the animations of older portals, in vain
        QCOMPARE(m_portal->calls.constLast().arguments(),
                 (QVariantList{u"org.gnome.desktop.interface"_s, u"enable-animations"_s}));
        QCOMPARE(m_appearance->colorScheme(), ColorScheme::Dark);
        QCOMPARE(m_appearance->accent().rgb(), qRgb(0, 128, 255));
        QVERIFY(m_appearance->wantsHighContrast());
        QVERIFY(m_appearance->wantsReducedMotion());
    }

    void unknownSettings_areTheDefaults()
    {
        open();
        m_appearance->windowsWillOpen();
        QTRY_COMPARE(m_portal->calls.size(), 5);
        QVERIFY(m_changes->isEmpty());
        QCOMPARE(m_appearance->colorScheme(), ColorScheme::Dark); // the toolkit's
        QVERIFY(!m_appearance->accent().isValid());
        QVERIFY(!m_appearance->wantsHighContrast());
        QVERIFY(!m_appearance->wantsReducedMotion());
    }

    void accent_ofAnyOtherKind_isNone_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("too large") << rgb(0, 1.1, 0);
        QTest::newRow("negative") << rgb(-1, 0, 0);
        QTest::newRow("one too large") << rgb(0, 0, 2);
        QTest::newRow("a text") << QVariant(u"blue"_s);
        QTest::newRow("a number") << QVariant(1.0);
    }
    void accent_ofAnyOtherKind_isNone()
    {
        QFETCH(const QVariant, value);
        open();
        QTRY_COMPARE(m_portal->calls.size(), 1);
        tell(space, u"accent-color"_s, rgb(0, 0, 0));
        QTRY_VERIFY(m_appearance->accent().isValid());
        tell(space, u"accent-color"_s, value);
        QTRY_VERIFY(!m_appearance->accent().isValid());
    }

    void changes_areAdopted()
    {
        open();
        QTRY_COMPARE(m_portal->calls.size(), 1);
        tell(space, u"color-scheme"_s, 2U);
        QTRY_COMPARE(m_appearance->colorScheme(), ColorScheme::Light);
        tell(space, u"color-scheme"_s, 0U);
        QTRY_COMPARE(m_appearance->colorScheme(), ColorScheme::Dark); // the toolkit's again
        tell(space, u"contrast"_s, 1U);
        QTRY_VERIFY(m_appearance->wantsHighContrast());
        tell(space, u"contrast"_s, 2U);
        QTRY_VERIFY(!m_appearance->wantsHighContrast());
        QCOMPARE(m_changes->size(), 4);
    }

    void animations_ofOlderPortals_areOffWhenTheyAreFalse()
    {
        open();
        QTRY_COMPARE(m_portal->calls.size(), 1);
        tell(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, false);
        QTRY_VERIFY(m_appearance->wantsReducedMotion());
        tell(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, true);
        QTRY_VERIFY(!m_appearance->wantsReducedMotion());
        tell(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, u"false"_s);
        QTRY_COMPARE(m_changes->size(), 3);
        QVERIFY(!m_appearance->wantsReducedMotion());
    }

    void otherSettings_changeNothing()
    {
        open();
        QTRY_COMPARE(m_portal->calls.size(), 1);
        tell(u"org.gnome.desktop.interface"_s, u"color-scheme"_s, 2U);
        tell(space, u"font"_s, u"Inter"_s);
        m_portal->signal(Portal::path, settings, u"SettingChanged"_s, {space, u"color-scheme"_s});
        tell(space, u"contrast"_s, 1U);
        QTRY_VERIFY(m_appearance->wantsHighContrast());
        QCOMPARE(m_changes->size(), 1);
    }

    void portal_thatComesBack_isReadAgain()
    {
        open();
        m_appearance->windowsWillOpen();
        QTRY_COMPARE(m_portal->calls.size(), 5);
        m_portal.reset();
        init();
        QTRY_COMPARE(m_portal->calls.size(), 5);
    }

    void toolkitsChange_isPassedOn()
    {
        open();
        emit m_toolkit->changed();
        QCOMPARE(m_changes->size(), 1);
    }

    void cleanup()
    {
        m_changes.reset();
        m_appearance.reset();
        m_portal.reset();
    }

private:
    void open()
    {
        auto toolkit = std::make_unique<ToolkitSays>();
        m_toolkit = toolkit.get();
        m_appearance = std::make_unique<PortalAppearance>(std::move(toolkit));
        m_changes = std::make_unique<QSignalSpy>(m_appearance.get(), &Appearance::changed);
    }
    void tell(const QString &where, const QString &key, const QVariant &value) const
    {
        m_portal->signal(Portal::path, settings, u"SettingChanged"_s,
                         {where, key, QVariant::fromValue(QDBusVariant(value))});
    }

    QVariantMap m_values;
    std::unique_ptr<BusPeer> m_portal;
    Appearance *m_toolkit = nullptr;
    std::unique_ptr<PortalAppearance> m_appearance;
    std::unique_ptr<QSignalSpy> m_changes;
};

QTEST_GUILESS_MAIN(PortalAppearanceTest)
#include "PortalAppearanceTest.moc"

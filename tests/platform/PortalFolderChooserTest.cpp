// SPDX-License-Identifier: MIT
#include "platform/linux/portal/PortalFolderChooser.h"

#include "platform/linux/portal/Portal.h"
#include "support/SessionBusFixture.h"
#include "support/TestDesktop.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QFileDialog>

using namespace Qt::StringLiterals;

class PortalFolderChooserTest final : public SessionBusFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        m_parent = std::make_unique<QWidget>();
        m_parent->setWindowTitle(u"Tovla Settings"_s);
        m_parent->show();
        m_chosen.clear();
        m_desktop.presented.clear();
        m_portal = std::make_unique<BusPeer>(Portal::service);
        m_portal->answer = [](const QDBusMessage &call) {
            return call.createReply(QVariant::fromValue(QDBusObjectPath(pathOf(call))));
        };
        choose();
        QTRY_COMPARE(m_portal->lastCall(),
                     u"org.freedesktop.portal.FileChooser.OpenFile(ssa{sv})"_s);
    }

    void request_isForOneFolder()
    {
        const QVariantList arguments = m_portal->calls.constFirst().arguments();
        QCOMPARE(arguments.at(0), QString()); // has no X11 window here
        QCOMPARE(arguments.at(1), u"Tovla Settings"_s);
        const auto options = qdbus_cast<QVariantMap>(arguments.at(2));
        QCOMPARE(options.value(u"directory"_s), true);
        QCOMPARE(options.value(u"modal"_s), true);
        QCOMPARE(options.value(u"accept_label"_s), u"Choose"_s);
        QVERIFY(!dialog());
    }

    void secondRequest_isNotMade_whileTheFirstIsOpen()
    {
        choose();
        answer(1, {});
        QTRY_VERIFY(!m_desktop.presented.isEmpty());
        QCOMPARE(m_portal->calls.size(), 1);
        choose();
        QTRY_COMPARE(m_portal->calls.size(), 2);
    }

    void answer_isTheFolder_andTheParentComesBack()
    {
        answer(0, {u"file:///home/ann/My%20Journal%C3%A9"_s});
        QTRY_COMPARE(m_chosen, QStringList{u"/home/ann/My Journalé"_s});
        QCOMPARE(m_desktop.presented.constLast(), m_parent.get());
    }

    void hiddenParent_staysHidden()
    {
        m_parent->hide();
        answer(0, {u"file:///home/ann"_s});
        QTRY_COMPARE(m_chosen, QStringList{u"/home/ann"_s});
        QVERIFY(m_desktop.presented.isEmpty());
    }

    void anyOtherAnswer_isNone_data()
    {
        QTest::addColumn<uint>("response");
        QTest::addColumn<QStringList>("uris");
        QTest::newRow("cancelled") << 1U << QStringList();
        QTest::newRow("cancelled with a folder") << 1U << QStringList{u"file:///home/ann"_s};
        QTest::newRow("nothing chosen") << 0U << QStringList();
        QTest::newRow("not local") << 0U << QStringList{u"sftp://host/ann"_s};
    }
    void anyOtherAnswer_isNone()
    {
        QFETCH(const uint, response);
        QFETCH(const QStringList, uris);
        answer(response, uris);
        QTRY_COMPARE(m_desktop.presented.size(), 1);
        QVERIFY(m_chosen.isEmpty());
    }

    void portal_thatEnds_isReplacedByTheToolkitsDialog()
    {
        m_portal.reset();
        QTRY_VERIFY(dialog());
    }

    void portal_withoutAChooser_isReplacedByTheToolkitsDialog()
    {
        answer(1, {});
        QTRY_VERIFY(!m_desktop.presented.isEmpty());
        m_portal->answer = [](const QDBusMessage &call) {
            return call.createErrorReply(QDBusError::UnknownInterface, u"no such portal"_s);
        };
        choose();
        QTRY_VERIFY(dialog());
    }

    void cleanup()
    {
        m_parent.reset();
        m_portal.reset();
    }

private:
    /// The request's object, as the portal names it.
    static QString pathOf(const QDBusMessage &call)
    {
        const auto options = qdbus_cast<QVariantMap>(call.arguments().constLast());
        QString sender = call.service().mid(1);
        return u"%1/request/%2/%3"_s.arg(Portal::path, sender.replace(u'.', u'_'),
                                         options.value(u"handle_token"_s).toString());
    }

    void answer(uint response, const QStringList &uris) const
    {
        m_portal->signal(pathOf(m_portal->calls.constLast()), u"org.freedesktop.portal.Request"_s,
                         u"Response"_s, {response, QVariantMap{{u"uris"_s, uris}}});
    }
    void choose()
    {
        m_chooser.choose(*m_parent, u"Choose"_s,
                         [this](const QString &path) { m_chosen.append(path); });
    }
    [[nodiscard]] QFileDialog *dialog() const { return m_parent->findChild<QFileDialog *>(); }

    TestDesktop m_desktop;
    Desktop m_capabilities = m_desktop.capabilities();
    PortalFolderChooser m_chooser{*m_capabilities.windows};
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<BusPeer> m_portal;
    QStringList m_chosen;
};

QTEST_MAIN(PortalFolderChooserTest)
#include "PortalFolderChooserTest.moc"

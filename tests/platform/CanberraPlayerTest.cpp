// SPDX-License-Identifier: MIT
#include "platform/linux/sound/CanberraPlayer.h"

#include "support/CanberraDouble.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class CanberraPlayerTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        CanberraDouble::reset();
        m_player = std::make_shared<CanberraPlayer>();
    }

    void sound_isPlayed_inAContextOfItsOwn()
    {
        play("a.wav");
        QCOMPARE(CanberraDouble::calls(), (QStringList{u"create"_s, u"play a.wav"_s}));
        const QStringList properties = CanberraDouble::properties();
        QVERIFY(properties.contains(u"application.id=org.tovla.Tovla"_s));
        QVERIFY(properties.contains(u"application.name=Tovla"_s));
        QVERIFY(properties.contains(u"media.role=event"_s));
        // The sound server would keep what it has in its cache for ever.
        QVERIFY(properties.contains(u"canberra.cache-control=never"_s));
    }

    void newSound_endsTheOld()
    {
        play("a.wav");
        play("b.wav");
        QCOMPARE(CanberraDouble::calls(),
                 (QStringList{u"create"_s, u"play a.wav"_s, u"cancel"_s, u"play b.wav"_s}));
    }

    void noSound_endsTheOld()
    {
        play("a.wav");
        m_player->play({});
        QTRY_COMPARE(CanberraDouble::calls(),
                     (QStringList{u"create"_s, u"play a.wav"_s, u"cancel"_s}));
    }

    void lostServer_isConnectedToAnew()
    {
        play("a.wav");
        CanberraDouble::failToPlay(1);
        m_player->play("b.wav");
        QTRY_COMPARE(CanberraDouble::calls(),
                     (QStringList{u"create"_s, u"play a.wav"_s, u"cancel"_s, u"play b.wav"_s,
                                  u"destroy"_s, u"create"_s, u"play b.wav"_s}));
    }

    void soundThatFailsTwice_isGivenUp_theNextIsTried()
    {
        CanberraDouble::failToPlay(2);
        m_player->play("a.wav");
        const QStringList twice{u"create"_s, u"play a.wav"_s, u"destroy"_s,
                                u"create"_s, u"play a.wav"_s, u"destroy"_s};
        QTRY_COMPARE(CanberraDouble::calls(), twice);
        m_player->play("b.wav");
        QTRY_COMPARE(CanberraDouble::calls(), twice + QStringList({u"create"_s, u"play b.wav"_s}));
    }

    void withoutASoundSystem_oneTryIsEnough()
    {
        CanberraDouble::refuseContexts();
        m_player->play("a.wav");
        QTRY_COMPARE(CanberraDouble::calls(), QStringList{u"create"_s});
        m_player->play("b.wav");
        QTRY_COMPARE(CanberraDouble::calls(), (QStringList{u"create"_s, u"create"_s}));
    }

private:
    void play(const QByteArray &path)
    {
        m_player->play(path);
        QTRY_VERIFY(CanberraDouble::calls().endsWith(u"play "_s + QString::fromUtf8(path)));
    }

    std::shared_ptr<CanberraPlayer> m_player;
};

QTEST_GUILESS_MAIN(CanberraPlayerTest)
#include "CanberraPlayerTest.moc"

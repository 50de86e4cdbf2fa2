// SPDX-License-Identifier: MIT
#include "Sounds.h"

#include "Correlation.h"
#include "Loudness.h"
#include "Wave.h"
#include "core/AppState.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

using namespace Synthesis;

namespace
{
constexpr std::size_t headerSize = 44;

/// Checks what is stored: the samples are read back from the file's bytes.
struct StoredSound {
    QString name;
    Bytes file;
    Samples samples;
};

quint32 numberAt(const Bytes &bytes, std::size_t position, std::size_t byteCount)
{
    quint32 value = 0;
    for (std::size_t index = byteCount; index-- > 0;) {
        value = value << 8 | bytes.at(position + index);
    }
    return value;
}

QByteArray chunkAt(const Bytes &bytes, std::size_t position)
{
    return {reinterpret_cast<const char *>(bytes.data()) + position, 4};
}

Samples storedSamples(const Bytes &file)
{
    Samples samples;
    for (std::size_t position = headerSize; position + 1 < file.size(); position += 2) {
        samples.push_back(static_cast<qint16>(numberAt(file, position, 2)) / 32768.0);
    }
    return samples;
}

std::vector<StoredSound> generatedSounds()
{
    std::vector<StoredSound> sounds;
    for (const Recipe &recipe : recipes()) {
        Bytes file = waveFile(quantised(finished(recipe)));
        Samples samples = storedSamples(file);
        sounds.push_back({QString::fromUtf8(recipe.name.data(), qsizetype(recipe.name.size())),
                          std::move(file), std::move(samples)});
    }
    return sounds;
}

/// Hard clipping leaves runs of frames that all sit at the peak.
int longestRunAtPeak(const Samples &samples)
{
    const double nearPeak = 0.999 * std::pow(10.0, peakLevel(samples) / 20.0);
    int run = 0;
    int longest = 0;
    for (const double sample : samples) {
        run = std::abs(sample) >= nearPeak ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}
} // namespace

class SoundsTest : public QObject
{
    Q_OBJECT

    std::vector<StoredSound> m_sounds;

    /// One row per sound, with its index as the data.
    void addRows() const
    {
        QTest::addColumn<std::size_t>("index");
        for (std::size_t index = 0; index < m_sounds.size(); ++index) {
            QTest::newRow(qPrintable(m_sounds[index].name)) << index;
        }
    }
    [[nodiscard]] const StoredSound &sound() const
    {
        QFETCH(const std::size_t, index);
        return m_sounds[index];
    }
    /// The difference between the highest and the lowest measure of all the sounds, in decibels.
    [[nodiscard]] double spread(double (*measure)(const Samples &)) const
    {
        std::vector<double> values;
        for (const StoredSound &sound : m_sounds) {
            values.push_back(measure(sound.samples));
        }
        const auto [lowest, highest] = std::ranges::minmax(values);
        return highest - lowest;
    }

private slots:
    void initTestCase() { m_sounds = generatedSounds(); }

    void meter_readsTheReferenceTone()
    {
        const Samples tone = render(1.0, [](double time) { return sineOfTurns(997.0 * time); });
        const double distance = std::abs(momentaryLoudness(tone) + 3.01);
        QVERIFY2(distance < 0.05, qPrintable(QString::number(distance)));
    }

    void names_areThoseThatCanBeChosen()
    {
        QStringList names;
        for (const StoredSound &sound : m_sounds) {
            names.append(sound.name);
        }
        QCOMPARE(names, AppState::availableSounds());
    }

    void format_isMonoSixteenBit_data() const { addRows(); }
    void format_isMonoSixteenBit()
    {
        const Bytes &file = sound().file;
        QCOMPARE(chunkAt(file, 0), "RIFF");
        QCOMPARE(chunkAt(file, 8), "WAVE");
        QCOMPARE(chunkAt(file, 12), "fmt ");
        QCOMPARE(chunkAt(file, 36), "data");
        QCOMPARE(numberAt(file, 20, 2), 1U); // linear samples
        QCOMPARE(numberAt(file, 22, 2), 1U); // one channel
        QCOMPARE(numberAt(file, 24, 4), quint32{sampleRate});
        QCOMPARE(numberAt(file, 34, 2), 16U);
        QCOMPARE(numberAt(file, 4, 4), quint32(file.size() - 8));
        QCOMPARE(numberAt(file, 40, 4), quint32(file.size() - headerSize));
    }

    void length_isShort_data() const { addRows(); }
    void length_isShort()
    {
        const double seconds = double(sound().samples.size()) / sampleRate;
        QVERIFY2(seconds >= 0.3 && seconds <= 1.6, qPrintable(QString::number(seconds)));
    }

    void files_areSmallTogether()
    {
        std::size_t total = 0;
        for (const StoredSound &sound : m_sounds) {
            total += sound.file.size();
        }
        QVERIFY2(total < 900'000, qPrintable(QString::number(total)));
    }

    void peak_isThreeDecibelsBelowFullScale_data() const { addRows(); }
    void peak_isThreeDecibelsBelowFullScale()
    {
        const double peak = peakLevel(sound().samples);
        QVERIFY2(std::abs(peak + 3.0) <= 0.1, qPrintable(QString::number(peak)));
    }

    void loudness_isAlike()
    {
        const double loudness = spread(momentaryLoudness);
        QVERIFY2(loudness <= 2.0, qPrintable(QString::number(loudness)));
        const double level = spread(loudestLevel);
        QVERIFY2(level <= 2.0, qPrintable(QString::number(level)));
    }

    void ends_areSilent_data() const { addRows(); }
    void ends_areSilent()
    {
        const Samples &samples = sound().samples;
        const auto edge = std::ptrdiff_t(frameCount(0.002));
        const double limit = 20.0 * std::log10(0.02);
        QCOMPARE(samples.front(), 0.0);
        QCOMPARE(samples.back(), 0.0);
        QVERIFY(peakLevel(Samples(samples.begin(), samples.begin() + edge)) < limit);
        QVERIFY(peakLevel(Samples(samples.end() - edge, samples.end())) < limit);
    }

    void mean_isZero_data() const { addRows(); }
    void mean_isZero()
    {
        double sum = 0.0;
        for (const double sample : sound().samples) {
            sum += sample;
        }
        const double mean = sum / double(sound().samples.size());
        QVERIFY2(std::abs(mean) < 0.005, qPrintable(QString::number(mean)));
    }

    void peak_isRound_data() const { addRows(); }
    void peak_isRound() { QVERIFY(longestRunAtPeak(sound().samples) <= 8); }

    void sounds_areDistinct()
    {
        constexpr std::size_t paddedSize = 131072; // more than two sounds of 1.6 s in a row
        std::vector<Spectrum> spectra;
        for (const StoredSound &sound : m_sounds) {
            spectra.push_back(spectrumOf(sound.samples, paddedSize));
            for (std::size_t other = 0; other + 1 < spectra.size(); ++other) {
                const double likeness = highestCorrelation(spectra.back(), spectra[other]);
                QVERIFY2(likeness < 0.35,
                         qPrintable(QStringLiteral("%1 and %2 correlate by %3")
                                        .arg(sound.name, m_sounds[other].name)
                                        .arg(likeness)));
            }
        }
    }

    void generation_isRepeatable()
    {
        const std::vector<StoredSound> again = generatedSounds();
        QCOMPARE(again.size(), m_sounds.size());
        for (std::size_t index = 0; index < again.size(); ++index) {
            QVERIFY2(again[index].file == m_sounds[index].file, qPrintable(again[index].name));
        }
    }
};

QTEST_GUILESS_MAIN(SoundsTest)
#include "SoundsTest.moc"

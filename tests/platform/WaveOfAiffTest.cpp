#include "platform/player/WaveOfAiff.h"

#include "platform/RuntimeError.h"

#include <QTemporaryFile>
#include <QtEndian>

#include <gtest/gtest.h>

namespace {

QByteArray Hex(const QByteArray& digits) {
    return QByteArray::fromHex(digits);
}

QByteArray Chunk(const char* name, const QByteArray& content) {
    QByteArray size(4, 0);
    qToBigEndian(static_cast<quint32>(content.size()), size.data());
    return name + size + content + QByteArray(content.size() % 2, 0);
}

/// Its numbers are hexadecimal digits; no coding makes it plain AIFF.
struct Sound {
    QByteArray Coding = "";
    QByteArray Channels = "0002";
    QByteArray Bits = "0010";
    QByteArray Samples = "0102030405060708";
    QByteArray Frames = "00000002";
    QByteArray Rate = "400eac44000000000000";
    QByteArray Offset = "00000000";
};

QByteArray Format(const Sound& sound) {
    return Chunk("COMM",
                 Hex(sound.Channels + sound.Frames + sound.Bits + sound.Rate) + sound.Coding);
}

QByteArray Samples(const Sound& sound) {
    return Chunk("SSND", Hex(sound.Offset + "00000000" + sound.Samples));
}

QByteArray Aiff(const Sound& sound, const QByteArray& chunks) {
    return Chunk("FORM", (sound.Coding.isEmpty() ? "AIFF" : "AIFC") + chunks);
}

QByteArray Aiff(const Sound& sound) {
    return Aiff(sound, Format(sound) + Samples(sound));
}

/// The WAVE file of an AIFF file of those bytes; null where it cannot be played.
std::unique_ptr<WaveOfAiff> Wave(const QByteArray& bytes) {
    QTemporaryFile file;
    EXPECT_TRUE(file.open() && file.write(bytes) == bytes.size() && file.flush());
    auto media = std::make_shared<MediaFile>([&] { return file.fileName(); });
    EXPECT_TRUE(media->Open());
    try {
        return std::make_unique<WaveOfAiff>(std::move(media));
    } catch (const RuntimeError&) {
        return nullptr;
    }
}

QByteArray Read(WaveOfAiff& wave, qint64 position, qint64 size) {
    EXPECT_EQ(wave.Seek(position), position);
    QByteArray bytes(size, 0);
    return bytes.first(wave.Read(bytes.data(), size));
}

/// The sound of the WAVE file, as hexadecimal digits.
QByteArray SamplesIn(const QByteArray& bytes) {
    const auto wave = Wave(bytes);
    return wave ? Read(*wave, 44, wave->Size()).toHex() : QByteArray("not played");
}

TEST(WaveOfAiff, IsAWaveFileThatCanBeReadFromAnywhere) {
    const auto wave = Wave(Aiff({}));
    ASSERT_TRUE(wave);
    const QByteArray whole = "RIFF" + Hex("2c000000") + "WAVEfmt " +
                             Hex("1000000001000200"
                                 "44ac000010b10200"
                                 "04001000") +
                             "data" +
                             Hex("08000000"
                                 "0201040306050807");
    for (int position = 0; position <= whole.size() + 1; ++position) {
        EXPECT_EQ(Read(*wave, position, 99), whole.mid(position)) << position;
        EXPECT_EQ(Read(*wave, position, 3), whole.mid(position, 3)) << position;
    }
    EXPECT_EQ(wave->Seek(-1), -1);
}

TEST(WaveOfAiff, HasSamplesOf16BitsWhateverTheFileHas) {
    const QByteArray one = "0001";
    EXPECT_EQ(SamplesIn(Aiff({"", one, "0008", "01ff"})), "000100ff");
    EXPECT_EQ(SamplesIn(Aiff({"NONE", one, "000c", "0120fff0"})), "2001f0ff");
    EXPECT_EQ(SamplesIn(Aiff({"twos", one, "0018", "010203fffefd"})), "0201feff");
    EXPECT_EQ(SamplesIn(Aiff({"NONE", one, "0020", "01020304fffefdfc"})), "0201feff");
    EXPECT_EQ(SamplesIn(Aiff({"sowt", one, "0010", "0102fffe"})), "0102fffe");
    EXPECT_EQ(SamplesIn(Aiff({"sowt", one, "0018", "010203fffefd"})), "0203fefd");
    EXPECT_EQ(SamplesIn(Aiff({"fl32", one, "0020", "3f000000c0000000"})), "ff3f0180"); // 0.5, -2
    EXPECT_EQ(SamplesIn(Aiff({"FL32", one, "0020", "7fc000007f800000"})),
              "0000ff7f"); // none, infinite
    EXPECT_EQ(SamplesIn(Aiff({"", "0003", "0010", "010203040506111213141516"})),
              "0201040312111413");
}

TEST(WaveOfAiff, TakesTheChunksAsTheyComeAndAsMuchSoundAsThereIs) {
    const Sound sound{.Samples = "eeee0102030405060708", .Offset = "00000002"};
    const QByteArray other = Chunk("NAME", "odd");
    EXPECT_EQ(SamplesIn(Aiff(sound, other + Samples(sound) + other + Format(sound))),
              "0201040306050807");
    EXPECT_EQ(SamplesIn(Aiff({.Frames = "00000001"})), "02010403");
    EXPECT_EQ(SamplesIn(Aiff({.Frames = "ffffffff"})), "0201040306050807");
    EXPECT_EQ(SamplesIn(Aiff({}).chopped(1)), "02010403");
    EXPECT_EQ(
        SamplesIn(Aiff({}).replace(Hex("00000010") + Hex("00000000"), Hex("ffffffff00000000"))),
        "0201040306050807");
}

TEST(WaveOfAiff, IsNotMadeOfWhatIsCompressedOrMakesNoSense) {
    const QByteArray samples = QByteArray("0102030405060708").repeated(40'000);
    EXPECT_FALSE(Wave(Aiff({"ima4"})));
    EXPECT_FALSE(Wave(Aiff({"fl32"}))); // of 16 bits
    for (const char* channels : {"0000", "0009", "ffff"}) {
        EXPECT_FALSE(Wave(Aiff({.Channels = channels, .Samples = samples}))) << channels;
    }
    for (const char* bits : {"0000", "0021", "ffff"}) {
        EXPECT_FALSE(Wave(Aiff({.Bits = bits, .Samples = samples}))) << bits;
    }
    for (const char* rate : {"00000000000000000000", "400eac44", "4011c350000000000000",
                             "7fffffffffffffffffff", "c00eac44000000000000"}) {
        EXPECT_FALSE(Wave(Aiff({.Rate = rate}))) << rate;
    }
    EXPECT_FALSE(Wave(Aiff({.Frames = "00000000"})));
    EXPECT_FALSE(Wave(Aiff({.Offset = "ffffffff"})));
    EXPECT_FALSE(Wave(Aiff({}, Format({}))));
    EXPECT_FALSE(Wave(Aiff({}, Samples({}))));
    const QByteArray whole = Aiff({});
    for (int size = 0; size < whole.size() - 4; ++size) {
        EXPECT_FALSE(Wave(whole.first(size))) << size;
    }
}

} // namespace

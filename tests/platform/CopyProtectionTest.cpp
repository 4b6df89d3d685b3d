#include "platform/player/CopyProtection.h"

#include <QTemporaryFile>
#include <QtEndian>

#include <gtest/gtest.h>

namespace {

QByteArray Size32(quint32 size) {
    QByteArray bytes(4, 0);
    qToBigEndian(size, bytes.data());
    return bytes;
}

QByteArray Size64(quint64 size) {
    QByteArray bytes(8, 0);
    qToBigEndian(size, bytes.data());
    return bytes;
}

QByteArray Atom(const char* name, const QByteArray& content) {
    return Size32(8 + static_cast<quint32>(content.size())) + name + content;
}

QByteArray LongAtom(const char* name, const QByteArray& content) {
    return Size32(1) + name + Size64(16 + static_cast<quint64>(content.size())) + content;
}

/// The table of a track's formats, which has one entry.
QByteArray Track(const char* format) {
    return Atom("stsd", Size64(1) + Size32(16) + format + QByteArray(8, '\0'));
}

bool IsProtected(const QByteArray& bytes) {
    QTemporaryFile file;
    EXPECT_TRUE(file.open() && file.write(bytes) == bytes.size() && file.flush());
    MediaFile media([&] { return file.fileName(); });
    EXPECT_TRUE(media.Open());
    return IsCopyProtected(media);
}

const QByteArray Head = Atom("ftyp", "M4A \0\0\0\0");

} // namespace

TEST(CopyProtection, EveryKindOfEncryptedTrackCounts) {
    for (const char* format : {"drms", "drmi", "enca", "encv"}) {
        EXPECT_TRUE(IsProtected(Head + Atom("moov", Track(format)))) << format;
        EXPECT_TRUE(IsProtected(Head + Atom("moov", Track("mp4a") + Track(format)))) << format;
    }
    EXPECT_FALSE(IsProtected(Head + Atom("moov", Track("mp4a") + Track("avc1"))));
}

TEST(CopyProtection, TheIndexIsFoundBehindWhateverElseThereIs) {
    const QByteArray index = Atom("moov", Track("drms"));
    EXPECT_TRUE(IsProtected(Head + Atom("mdat", Track("mp4a")) + index));
    EXPECT_TRUE(IsProtected(Head + LongAtom("mdat", "sound") + index));
    EXPECT_TRUE(IsProtected(Head + LongAtom("mdat", "") + index));
    EXPECT_TRUE(IsProtected(Head + Size32(0) + "moov" + Track("drms"))); // up to the end
    EXPECT_TRUE(IsProtected(Head + Atom("free", "").repeated(900) + index));
}

TEST(CopyProtection, WhatStandsOutsideTheIndexDoesNotCount) {
    EXPECT_FALSE(IsProtected(Head + Atom("mdat", Track("drms")) + Atom("moov", Track("mp4a"))));
    EXPECT_FALSE(IsProtected(Head + Size32(0) + "mdat" + Atom("moov", Track("drms"))));
    EXPECT_FALSE(IsProtected(Atom("moov", Track("drms")))); // no file of this kind
}

TEST(CopyProtection, ADamagedFileIsNotTakenForAProtectedOne) {
    const QByteArray index = Atom("moov", Track("drms"));
    EXPECT_FALSE(IsProtected({}));
    EXPECT_FALSE(IsProtected(Head));
    EXPECT_FALSE(IsProtected(Head + index.chopped(1)));
    EXPECT_FALSE(IsProtected(Head + Size32(7) + "free" + index));
    EXPECT_FALSE(IsProtected(Head + Size32(1) + "free" + Size64(15) + index));
    EXPECT_FALSE(IsProtected(Head + Size32(1) + "free" + Size64(~0ULL) + index));
    EXPECT_FALSE(IsProtected(Head + Size32(1) + "free"));
    EXPECT_FALSE(IsProtected(Head + Atom("moov", "stsd")));
}

#include "platform/player/CopyProtection.h"

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

/// A block of the file, which starts with its length and a name of four letters.
struct Atom {
    QByteArray Name;
    qint64 HeaderSize = 0;
    /// Length with the header; 0 for no atom.
    qint64 Size = 0;
};

Atom AtomAt(MediaFile& file, qint64 position) {
    const QByteArray header = file.ReadAt(position, 16);
    if (header.size() < 8) {
        return {};
    }
    Atom atom = {header.mid(4, 4), 8, qFromBigEndian<quint32>(header.constData())};
    if (atom.Size == 1 && header.size() == 16) {
        atom.HeaderSize = 16;
        atom.Size = qFromBigEndian<qint64>(header.constData() + 8);
    } else if (atom.Size == 0) {
        atom.Size = file.Size() - position;
    }
    const bool fits = atom.Size >= atom.HeaderSize && atom.Size <= file.Size() - position;
    return fits ? atom : Atom{};
}

/// Whether one of the tracks that the index describes is encrypted.
bool NamesEncryptedTrack(const QByteArray& index) {
    const std::array<const char*, 4> encrypted = {"drms", "drmi", "enca", "encv"};
    constexpr qsizetype fromTableToFormat = 16;
    for (qsizetype table = index.indexOf("stsd"); table >= 0;
         table = index.indexOf("stsd", table + 1)) {
        const QByteArray format = index.mid(table + fromTableToFormat, 4);
        if (std::find(encrypted.begin(), encrypted.end(), format) != encrypted.end()) {
            return true;
        }
    }
    return false;
}

} // namespace

bool IsCopyProtected(MediaFile& file) {
    constexpr int mostAtoms = 1000;
    constexpr qint64 mostIndexBytes = 64 << 20;
    Atom atom = AtomAt(file, 0);
    if (atom.Name != "ftyp") {
        return false;
    }
    qint64 position = 0;
    for (int i = 0; i < mostAtoms && atom.Size > 0 && atom.Name != "moov"; ++i) {
        position += atom.Size;
        atom = AtomAt(file, position);
    }
    return atom.Name == "moov" &&
           NamesEncryptedTrack(file.ReadAt(position, std::min(atom.Size, mostIndexBytes)));
}

// What the tests of the player need of Windows, which is wine here.

#include "platform/windows/WindowsApi.h"
#include "tests/preview/PlayerTest.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

/// Linux' own ffmpeg makes it. No program of Windows can wait for one of Linux, or hear what it
/// says.
QByteArray MediaSamples::Encode(const QStringList& arguments, const QString& path) {
    const QString done = Folder() + u"/done"_s;
    QStringList words = arguments + QStringList{path};
    words.replaceInStrings(Folder() + u'/', QString()); // Linux knows the folder by another name
    const QString script = u"ffmpeg $@ >said 2>&1 || rm -f %1; mv said done"_s.arg(words.last());
    QProcess::startDetached(u"Z:/bin/sh"_s, QStringList{u"-c"_s, script, u"sh"_s} + words,
                            Folder());
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(done); }, 60'000));
    const QByteArray said = Read(done);
    QFile::remove(done);
    return said;
}

/// At most once: nobody else may have open what is opened alone.
int MediaSamples::TimesOpen(const QString& path) {
    const std::wstring native = QDir::toNativeSeparators(path).toStdWString();
    const HANDLE file =
        CreateFileW(native.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return 1;
    }
    CloseHandle(file);
    return 0;
}

/// Run where the system's libraries for media cannot be loaded, as in some editions of Windows.
class PlayerWithoutMediaFoundation : public PlayerTest {};

TEST_F(PlayerWithoutMediaFoundation, NamesWhatIsMissing) {
    Preview(Song());
    EXPECT_EQ(Child<QLabel>("MessageLabel").text(),
              u"Windows plays this with its Media Feature Pack, which is not installed."_s);
}

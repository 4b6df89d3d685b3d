// What the tests of the player need of Linux, and what they can show there alone.

#include "tests/preview/PlayerTest.h"
#include "tests/support/ServedDisk.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

std::vector<std::filesystem::path> OpenDescriptors(const QString& path) {
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        if (std::filesystem::read_symlink(entry, gone) == path.toStdString()) {
            found.push_back(entry.path());
        }
    }
    return found;
}

} // namespace

QByteArray MediaSamples::Encode(const QStringList& arguments, const QString& path) {
    QProcess ffmpeg;
    ffmpeg.setProcessChannelMode(QProcess::MergedChannels);
    ffmpeg.start(u"ffmpeg"_s, arguments + QStringList{path});
    const bool made = ffmpeg.waitForFinished(60'000) && ffmpeg.exitCode() == 0;
    if (!made) {
        QFile::remove(path);
    }
    return ffmpeg.readAll();
}

int MediaSamples::TimesOpen(const QString& path) {
    return static_cast<int>(OpenDescriptors(path).size());
}

TEST_F(PlayerTest, AFileIsOpenForReadingOnlyWhileItPlays) {
    const QString path = MediaSamples::Film(u"film.mp4"_s, FilmSize);
    player.SetSource(path);
    const auto descriptors = OpenDescriptors(path);
    ASSERT_EQ(descriptors.size(), 1u);
    const QString number = QString::fromStdString(descriptors[0].filename().string());
    QFile info(u"/proc/self/fdinfo/"_s + number);
    ASSERT_TRUE(info.open(QIODevice::ReadOnly));
    const QList<QByteArray> words = info.readAll().simplified().split(' ');
    const int flags = words.value(words.indexOf("flags:") + 1).toInt(nullptr, 8);
    ASSERT_NE(flags, 0);
    EXPECT_EQ(flags & O_ACCMODE, O_RDONLY);
}

TEST_F(PlayerTest, SaysThatAPathCannotBePlayedUntilThePlayerIsStopped) {
    const QString pipe = MediaSamples::Folder() + u"/pipe.mp3"_s; // is not waited for
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString gone = u"E:\\iPod_Control\\Music\\F00\\ABCD.mp3"_s;
    files.FailPath(FileCall::NativePath, gone, ErrorNumber::DeviceUnavailable);
    for (const QString& path :
         {MediaSamples::Folder() + u"/none.mp3"_s, MediaSamples::Folder(), pipe, gone}) {
        player.SetSource(path);
        EXPECT_TRUE(SaysItCannotPlay()) << path.toStdString();
        player.SetSource(QString());
        EXPECT_FALSE(SaysItCannotPlay()) << path.toStdString();
    }
    EXPECT_EQ(files.FailuresStruck, 1);
}

TEST_F(PlayerTest, OnADeviceThatHangsAPreviewOpensAndClosesAtOnceAndTheNextOnePlays) {
    const QTemporaryDir folder;
    SlowDisk device(folder.path());
    if (!device.IsMounted()) {
        GTEST_SKIP() << device.Impossible().toStdString();
    }
    const QString film = MediaSamples::Film(u"film.mp4"_s, u"160x120"_s);
    ASSERT_TRUE(QFile::copy(film, device.Content() + u"/film.mp4"_s));
    const struct {
        const char *First, *Then;
    } moments[] = {{"stall=open", "stall=open"},
                   {"stall=read", "stall=read"},
                   {"speed=20000", "stall=read"},
                   {"", "stall=close"}};
    for (const auto& [first, then] : moments) {
        player.Widget()->Patience = PlayerWidget::UsualPatience;
        device.Be(first);
        QElapsedTimer time;
        time.start();
        Preview(folder.filePath(u"film.mp4"_s));
        QTest::qWait(100);
        device.Be(then);
        player.SetSource(QString());
        EXPECT_LT(time.elapsed(), 600) << first;

        player.Widget()->Patience = 20'000;
        Preview(film);
        EXPECT_TRUE(Becomes([&] { return Position().value() > 100; })) << then;
        device.Be("");
    }
}

#include "tests/faults/SweptFolders.h"

#include "tests/platform/LinuxFixture.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace {

/// Long enough for the kernel's own copy.
const QByteArray LongBytes = Pattern(1200000);

} // namespace

SweptFolders::SweptFolders() : SweptFolders(std::make_unique<QTemporaryDir>(FolderInMemory())) {
}

SweptFolders::SweptFolders(std::unique_ptr<QTemporaryDir> work)
    : JobFolders(work->path()), m_work(std::move(work)) {
    AddTrack("Abba", "Arrival", "One", "one");
    AddTrack("Abba", "Arrival", "Two", "new two");
    AddTrack("Abba", "Arrival", "Blocks", LongBytes.left(300000));
    AddTrack("Abba", "Arrival", "Kernel", LongBytes);
    AddFilm("Abba", "Live", "Film", LongBytes.left(70000));
    AddFilm("Abba", "Live", "Extra", "extra");
    AddTrack("Beck", "Guero", "Girl", "girl");
    AddOld(Destination + u"/Abba/Arrival/Two.mp3"_s, "old two");
    AddOld(Destination + u"/Abba/Live/Film.mp3"_s, "old film");
    AddOwn(Destination + u"/mine.txt"_s, "mine");
    AddOwn(Destination + u"/Abba/Arrival/cover.jpg"_s, "cover");
    AddLeft(Destination + u"/Abba/Arrival/.songlift.part"_s, "half of a song");
    AddLeft(Destination + u"/tmp/copy.tmp"_s, LongBytes.left(100000));
}

QString PlaceOf(const SystemCall& call) {
    const QString folder =
        call.File >= 0 ? QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(call.File)) : QString();
    const QString name = QString::fromUtf8(call.Path);
    return call.Path == nullptr || name.startsWith(u'/') ? folder + name : folder + u"/"_s + name;
}

int RefusalOf(const SystemCall& call, Disk disk) {
    const bool isNameless = (call.Flags & O_TMPFILE) == O_TMPFILE;
    return disk == Disk::WithoutNamelessFiles && isNameless ? EOPNOTSUPP : 0;
}

namespace {

int CountCalls(Disk disk) {
    const SweptFolders folders;
    RealJob job(folders);
    int calls = 0;
    {
        const HookedSystemCalls hooked([&](SystemCall& call) {
            ++calls;
            return RefusalOf(call, disk);
        });
        job.Press();
    }
    EXPECT_EQ(job.messages.Texts(), QStringList(u"Copy completed!"_s));
    EXPECT_EQ(job.prompted.size(), 2);
    folders.ExpectAllCopied();
    return calls;
}

} // namespace

int CallsOfJob(Disk disk) {
    CountCalls(disk); // the first job asks the kernel what it knows, once for all
    return CountCalls(disk);
}

// The iPod is pulled in the middle of a job on the real window, and comes back.

#include "tests/program/RealWindow.h"

using namespace Qt::StringLiterals;

namespace {

class Unplugged : public testing::Test, protected RealWindow {
protected:
    /// The number of copies, each of them whole: no two tracks are of one size.
    int Copies() {
        std::vector<qint64> sizes;
        for (const SampleTrack& track : SmallLibrary()) {
            sizes.push_back(track.FileSize);
        }
        const QStringList copies = Copied();
        for (const QString& copy : copies) {
            EXPECT_EQ(std::erase(sizes, files.Length(copy)), 1u) << copy.toStdString();
        }
        return int(copies.size());
    }
};

} // namespace

TEST_F(Unplugged, AtAnyFileTheJobGoesOnAndTheNextJobCopiesTheRest) {
    Start();
    TickRow("lstArtists", 0);
    AtPrompt = [](OverwritePrompt& prompt) { prompt.Take(OverwritePrompt::Skip, false); };
    messages.WhileShown = [this](const ShownMessage& message) {
        const bool asks = message.Buttons == MessageButtons::AbortRetryIgnore;
        messages.Answers.assign(asks ? 1 : 0, MessageAnswer::Ignore);
    };
    for (int file = 1; file <= 6; ++file) {
        SCOPED_TRACE(file);
        files.Remove(u"D:\\Music"_s);
        files.AddFolder(u"D:\\Music"_s);
        int copied = 0;
        files.BeforeCall = [&](const RecordedFiles::RecordedCall& call) {
            if (call.Call == FileCall::CopyFile && ++copied == file) {
                Unplug();
            }
        };
        // Every file from there on is asked about once, then the job is over.
        const QStringList told = Copy();
        EXPECT_EQ(told.size(), 7 - file + 1);
        EXPECT_EQ(told.last(), u"Copy completed!"_s);
        EXPECT_TRUE(controls.lstArtists.Enabled());
        EXPECT_EQ(controls.cmdCopy.Caption(), u"&Copy to destination"_s);
        EXPECT_EQ(Copies(), file - 1);
        files.BeforeCall = {};
        PlugIn();
        EXPECT_EQ(Copy(), QStringList({u"Copy completed!"_s}));
        EXPECT_EQ(Copies(), 6);
    }
}

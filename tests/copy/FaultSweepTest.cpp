// One job after another, in each of which another call to the files fails, where the sweep of the
// system's calls does not look: the window is closed at that moment, with a search result in it, or
// the destination is still to be made.

#include "tests/copy/CopyFixture.h"

#include "platform/RuntimeError.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

enum class Policy { Ignore, Stop, Quit };

const QString Quit = u"Are you sure you want to quit?"_s;

MessageAnswer AnswerTo(MessageButtons buttons, Policy policy) {
    switch (buttons) {
    case MessageButtons::AbortRetryIgnore:
        return policy == Policy::Ignore ? MessageAnswer::Ignore : MessageAnswer::Abort;
    case MessageButtons::RetryCancel:
        return MessageAnswer::Cancel;
    case MessageButtons::YesNo:
        return policy == Policy::Quit ? MessageAnswer::Yes : MessageAnswer::No;
    default:
        return MessageAnswer::OK;
    }
}

/// Two artists, of whom a search shows only the first, an earlier film that is to be replaced, a
/// folder "tmp" of an earlier job, and a file of the user's own.
class SweptJob : public CopyFixture {
public:
    explicit SweptJob(Policy policy) {
        const QString music = u"D:\\Music\\"_s;
        sources[music + u"Abba\\Arrival\\One.mp3"_s] =
            AddTrack("Abba", "Arrival", "One", "one").Location;
        TrackRecord& film = AddTrack("Abba", "Live", "Film", "a short film");
        film.FileSize = 50000001; // it is copied as large ones are
        sources[Film] = film.Location;
        sources[music + u"Beck\\Guero\\Girl.mp3"_s] =
            AddTrack("Beck", "Guero", "Girl", "girl").Location;
        files.AddFile(Film, "old film");
        files.AddFile(music + u"mine.txt"_s, "mine");
        files.AddFile(music + u"tmp\\copy.tmp"_s, "left behind");
        SetOptions("AB");
        events.ToYield = 1000;
        promptUses = {PromptUse::ReplaceAll};
        ShowFirstArtistOnly();
        messages.WhileShown = [this, policy](const ShownMessage& message) {
            messages.Answers = {AnswerTo(message.Buttons, policy)};
        };
    }

    void Run(int nth, int number) {
        files.FailNthCall(nth, ErrorNumber(number));
        Press();
        EXPECT_FALSE(job.Copying);
        EXPECT_EQ(files.OpenFiles, 0);
        EXPECT_EQ(files.ChangesBelow(u"E:"_s), QStringList());
        EXPECT_EQ(Bytes("D:\\Music\\mine.txt"), "mine");
        EXPECT_TRUE(IsCopied(Film) || files.Bytes(Film) == "old film");
        for (const auto& [path, source] : sources) {
            EXPECT_TRUE(path == Film || !files.HasFile(path) || IsCopied(path));
        }
        const bool isOpen = closed == 0; // else the program ends with the window
        EXPECT_EQ(library.Artists.size(), isOpen ? 1U : 2U);
        EXPECT_EQ(form.lstArtists.Enabled(), isOpen);
    }

    bool IsCopied(const QString& path) const {
        return files.HasFile(path) && files.SameContent(path, sources.at(path));
    }

    const QString Film = u"D:\\Music\\Abba\\Live\\Film.mp3"_s;
    std::map<QString, QString> sources; // by the path of the copy
};

/// Runs a job for each of its calls and each error.
void Sweep(Policy policy, const std::vector<int>& numbers,
           const std::function<void(SweptJob& job, int nth, int number)>& run) {
    SweptJob whole(policy);
    whole.Press();
    for (const int number : numbers) {
        for (int nth = 1; nth <= static_cast<int>(whole.files.Calls.size()); ++nth) {
            SCOPED_TRACE(testing::Message() << "call " << nth << ", error " << number);
            SweptJob job(policy);
            run(job, nth, number);
        }
    }
}

} // namespace

TEST(FaultSweep, AClosedWindowAndAFailureAtAnyCallQuitOrGoOnAsTheUserSays) {
    for (const Policy policy : {Policy::Quit, Policy::Stop}) {
        int quitted = 0;
        Sweep(policy, {53, 57, 61}, [&](SweptJob& job, int nth, int number) {
            job.files.BeforeCall = [&, count = 0](const auto&) mutable {
                if (++count == nth && job.job.Copying) {
                    job.form.Form1.UserClose();
                }
            };
            job.Run(nth, number);
            const bool wasAsked = job.messages.Texts().contains(Quit);
            EXPECT_EQ(job.closed, wasAsked && policy == Policy::Quit ? 1 : 0);
            if (wasAsked && job.messages.Shown.back() == Completed) {
                for (const auto& [path, source] : job.sources) {
                    EXPECT_TRUE(job.IsCopied(path)); // "No" begins the same track again
                }
            }
            quitted += job.closed;
        });
        EXPECT_EQ(quitted > 0, policy == Policy::Quit);
    }
}

TEST(FaultSweep, ADestinationThatIsStillToBeMadeHarmsNothingWhateverFails) {
    for (const Policy policy : {Policy::Ignore, Policy::Stop}) {
        Sweep(policy, {52, 57, 61, 70, 76}, [](SweptJob& job, int nth, int number) {
            job.form.txtDestination.SetText(u"D:\\Music\\New\\Sub"_s);
            job.Run(nth, number);
            EXPECT_EQ(job.Bytes("D:\\Music\\tmp\\copy.tmp"), "left behind");
            EXPECT_EQ(job.destination.ProbeFolder(), QString());
        });
    }
}

#include "tests/copy/CopyFixture.h"

using namespace Qt::StringLiterals;

namespace {

class CopyPlanTest : public CopyFixture, public testing::Test {
protected:
    CopyPlanTest() {
        AddTrack("Queen", "Jazz?", "Mustapha", {}, 1);
        AddTrack("Queen", "Jazz?", "\"39\"", {});
        AddTrack("queen", "Jazz", "Bijou", {});
        AddTrack("Abba", "jazz", "Money", {});
    }

    /// The planned paths, each with a "*" before it where a folder begins.
    QStringList Planned(const CopyOptions& options) const {
        QStringList paths;
        for (const PlannedTrack& planned : PlanCopy(library, options)) {
            QStringList path = planned.Folders;
            path += planned.Name + planned.Extension;
            paths += (planned.StartsFolder ? u"*"_s : QString()) + path.join(u'/');
        }
        return paths;
    }
};

} // namespace

TEST_F(CopyPlanTest, WhatIsNotTickedIsLeftOutWithAllBeneathIt) {
    library.Artists[0].Albums[0].Tracks[0].Checked = false;
    library.Artists[1].Albums[0].Checked = false;
    library.Artists[2].Checked = false;
    EXPECT_EQ(Planned({}), QStringList{u"*'39'.mp3"_s});
}

TEST_F(CopyPlanTest, ANameReadsArtistAlbumNumberTitleWhateverTheFolders) {
    library.Artists.resize(1);
    EXPECT_EQ(Planned({true, true, true, true, true}),
              (QStringList{u"*Queen/Jazz/Queen - Jazz - 01 Mustapha.mp3"_s,
                           u"Queen/Jazz/Queen - Jazz - '39'.mp3"_s}));
}

TEST_F(CopyPlanTest, AFolderBeginsWhereANameInThePathChangesInMoreThanItsCase) {
    EXPECT_EQ(Planned({.ArtistFolder = true}),
              (QStringList{u"*Queen/Mustapha.mp3"_s, u"Queen/'39'.mp3"_s, u"queen/Bijou.mp3"_s,
                           u"*Abba/Money.mp3"_s}));
    EXPECT_EQ(Planned({.AlbumFolder = true}),
              (QStringList{u"*Jazz/Mustapha.mp3"_s, u"Jazz/'39'.mp3"_s, u"Jazz/Bijou.mp3"_s,
                           u"jazz/Money.mp3"_s}));
}

TEST_F(CopyPlanTest, WhatAnEarlierDeviceLeftInTheRecordsIsNotCopied) {
    library.TrackCount = 0;
    EXPECT_EQ(Planned({}), QStringList());
}

#pragma once

#include "app/Subsystems.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/fakes/UserSteps.h"

#include <gtest/gtest.h>

#include <string>

/// The records that a text describes: a line for each artist, under it, indented by two blanks, a
/// line for each of its albums, and under that, indented by four, one for each song:
///
///     Abba
///       Arrival
///         Money
///         Tiger | 3 | 2048 | video
///
/// A song's number (0), size in bytes (1024) and kind (audio, video or other; audio) may be left
/// out from the end on.
std::vector<ArtistRecord> RecordsOf(const char* description);

/// The row texts, as "All (2 Artists), Abba, Queen".
std::string Texts(const FakeListControl& list);
/// The texts of the ticked rows.
std::string Ticked(const FakeListControl& list);
/// The text of the current row; empty for none.
std::string Current(const FakeListControl& list);
/// The ticked records, each with the names above it: "Abba, Abba/Arrival, Abba/Arrival/Money".
std::string CheckedRecords(const std::vector<ArtistRecord>& artists);

/// The three lists, the tabs and the search box of a window that shows a library, wired as in the
/// program, so that a test can act as the user.
class BrowserFixture {
public:
    FakeForm1 Form;
    FakeListControl& lstArtists = Form.lstArtists;
    FakeListControl& lstAlbums = Form.lstAlbums;
    FakeListControl& lstSongs = Form.lstSongs;
    RecordedFiles Files;
    FakeMessages Messages;
    FakeDriveService Drives;
    FakeEventLoop Events;
    InlineWorker Background;
    FakeSettingsStore Store;
    FakeShell Desktop;

    Subsystems Parts{{Files, Drives, Store, Desktop, Form.WindowManager, Messages, Events,
                      Background, Background},
                     Form.Controls};
    MusicLibrary& Library = Parts.Loading.Library;
    DeviceSelection& Devices = Parts.Devices;
    TextFitting& Fitting = Parts.Fitting;
    LinkedLists& Linked = Parts.Lists;
    SearchResult& Result = Parts.Result;
    ArtistList& Artists = Parts.Artists;
    MediaFilter& Filter = Parts.Filter;
    SelectionSummary& Summary = Parts.Summary;
    CheckPropagation& Checks = Parts.Checks;
    Search& WordSearch = Parts.WordSearch;

    /// Shows the described library; nothing is shown of one without artists.
    explicit BrowserFixture(const char* description);
    explicit BrowserFixture(std::vector<ArtistRecord> artists);

    /// Shows another library in the same window, as after a change of the device.
    void Load(std::vector<ArtistRecord> artists);

    /// Does what the user does, as ActOn.
    void Do(const char* steps) { ActOn(Form, steps); }

    /// Of the three lists all rows, the ticked ones, and the current one: "Queen | Jazz |
    /// Mustapha".
    std::string Rows() const;
    std::string TickedRows() const;
    std::string CurrentRows() const;
    /// The ticked records.
    std::string Checked() const { return CheckedRecords(Library.Artists); }
    /// How often the lists have been filled.
    int Fills() const { return lstArtists.FillCount + lstAlbums.FillCount + lstSongs.FillCount; }

    std::string FullName() const { return Form.lblFullName.Caption().toStdString(); }
    std::string Message() const { return Form.lblMessage.Caption().toStdString(); }
};

/// Rows, indices, names and numbers all differ in their order: Abba is artist 1 and row 1, Queen
/// artist 0 and row 2; each has an album with the index 0, and that a song with the index 0.
inline const char* const TwoArtists = R"(
Queen
  Jazz
    Mustapha | 1 | 1024
    Bicycle Race | 4 | 2048
  Innuendo
    Headlong | 5 | 4096
    Bijou | 11 | 8192
Abba
  Arrival
    Tiger | 2 | 16384
    Money | 1 | 32768
)";

/// A test of what a window does that shows a library.
class BrowserTest : public testing::Test {
protected:
    explicit BrowserTest(const char* description = TwoArtists) : browser(description) {}

    BrowserFixture browser;
    FakeForm1& form = browser.Form;
    FakeListControl& artists = browser.lstArtists;
    FakeListControl& albums = browser.lstAlbums;
    FakeListControl& songs = browser.lstSongs;
};

#include "app/Subsystems.h"

#include "app/ControlGroups.h"
#include "platform/IgnoringErrors.h"

namespace {

LoadServices LoadServicesOf(const Services& services) {
    return {.Files = services.Files,
            .Background = services.Background,
            .Events = services.Events,
            .MessageBoxes = services.MessageBoxes};
}

} // namespace

Subsystems::Subsystems(const Services& services, Form1Controls& controls)
    : Loading(LoadServicesOf(services), LoadControlsOf(controls)),
      Devices(Loading, services.Drives, LoadServicesOf(services), services.Windows,
              DeviceControlsOf(controls)),
      Fitting(services.Windows, FittingControlsOf(controls)),
      Lists(Loading.Library, Fitting, ListControlsOf(controls)), Result(Loading.Library, Lists),
      Artists(Loading.Library, Lists, Result, ArtistListControlsOf(controls)),
      Filter(Loading.Library, controls.tbsFilter),
      Summary(Result, Loading.Library, SummaryControlsOf(controls)),
      WordSearch(Shown(), Summary, services.Events, services.Windows, SearchControlsOf(controls)),
      Checks(Shown(), Summary, WordSearch, CheckedListControlsOf(controls)),
      CopyFiles(services.Files, services.Background, services.Ahead),
      Target(CopyFiles, services.Desktop, services.Windows, DestinationControlsOf(controls)),
      Job({.Files = CopyFiles,
           .MessageBoxes = services.MessageBoxes,
           .Events = services.Events,
           .Windows = services.Windows},
          {.Library = Loading.Library,
           .Result = Result,
           .WordSearch = WordSearch,
           .Summary = Summary},
          Target, Prompt, CopyControlsOf(controls)) {
    WireDevices(controls);
    WireLists(controls);
    WireMouse(controls);
    WireSearch(controls);
    WireCopy(controls);
}

Browser Subsystems::Shown() {
    return {.Library = Loading.Library, .Lists = Lists, .Result = Result, .Artists = Artists};
}

void Subsystems::WireDevices(Form1Controls& controls) {
    controls.Combo1.DropDown = [this] { Devices.Combo1_DropDown(); };
    controls.Combo1.Click = [this] { Devices.Combo1_Click(); };
    controls.timScan.Timer = [this] { Devices.timScan_Timer(); };
    Devices.LibraryLeaves = [this] { ForgetLibrary(); };
    Devices.DeviceChosen = [this] { AwaitLibrary(); };
    Devices.LibraryLoaded = [this] { ShowLibrary(); };
    Devices.NoMusicFound = [this] { ShowNoMusic(); };
    Devices.NoDeviceChosen = [this] { ShowNoDevice(); };
}

void Subsystems::WireLists(Form1Controls& controls) {
    controls.lstArtists.Click = [this] { Lists.lstArtists_Click(); };
    controls.lstAlbums.Click = [this] { Lists.lstAlbums_Click(); };
    controls.lstSongs.Click = [this] { Lists.lstSongs_Click(); };
    controls.lstArtists.ItemCheck = [this](int Item) { Checks.lstArtists_ItemCheck(Item); };
    controls.lstAlbums.ItemCheck = [this](int Item) { Checks.lstAlbums_ItemCheck(Item); };
    controls.lstSongs.ItemCheck = [this](int Item) { Checks.lstSongs_ItemCheck(Item); };
}

void Subsystems::WireMouse(Form1Controls& controls) {
    controls.lstArtists.MouseMove = [this](const MouseState&) { Fitting.lstArtists_MouseMove(); };
    controls.lstAlbums.MouseMove = [this](const MouseState&) { Fitting.lstAlbums_MouseMove(); };
    controls.lstSongs.MouseMove = [this](const MouseState&) { Fitting.lstSongs_MouseMove(); };
    controls.lstArtists.Scroll = [this] { Fitting.lstArtists_Scroll(); };
    controls.lstAlbums.Scroll = [this] { Fitting.lstAlbums_Scroll(); };
    controls.lstSongs.Scroll = [this] { Fitting.lstSongs_Scroll(); };
    controls.lstSongs.MouseDown = [this](const MouseState& mouse) {
        Fitting.lstSongs_MouseDown(mouse);
    };
}

void Subsystems::WireSearch(Form1Controls& controls) {
    controls.tbsFilter.Click = [this] { Filter.tbsFilter_Click(); };
    controls.txtSearch.Change = [this] { WordSearch.txtSearch_Change(); };
    controls.txtSearch.GotFocus = [this] { WordSearch.txtSearch_GotFocus(); };
    controls.txtSearch.LostFocus = [this] { WordSearch.txtSearch_LostFocus(); };
    controls.lblSearch.Click = [this] { WordSearch.lblSearch_Click(); };
    controls.cmdSearch.Click = [this] { WordSearch.cmdSearch_Click(); };
    controls.cmdClear.Click = [this] { WordSearch.cmdClear_Click(); };
    Filter.FilterChanged = [this] { WordSearch.ShowFiltered(); };
}

void Subsystems::WireCopy(Form1Controls& controls) {
    controls.txtDestination.Change = [this] { Target.txtDestination_Change(); };
    controls.cmdBrowse.Click = [this] { Target.cmdBrowse_Click(); };
    controls.cmdCopy.Click = [this] { Job.cmdCopy_Click(); };
}

void Subsystems::ForgetLibrary() {
    Lists.ResetState();
    Result.ResetState();
    Artists.ResetState();
    Filter.ResetState();
    WordSearch.ResetState();
    Summary.ResetState();
    Fitting.ForgetText();
}

void Subsystems::AwaitLibrary() {
    Artists.AwaitLibrary();
    WordSearch.AwaitLibrary();
    Filter.AwaitLibrary();
}

void Subsystems::ShowLibrary() {
    Artists.ShowLibrary();
    Summary.CalculateSize(false);
    WordSearch.OfferSearch();
    Artists.TakeFocus();
}

void Subsystems::ShowNoMusic() {
    Artists.ShowNoMusic();
    WordSearch.ShowNoMusic();
}

void Subsystems::ShowNoDevice() {
    IgnoringErrors([this] { Fitting.ForgetText(); });
    Artists.ShowNoDevice();
    WordSearch.ShowNoDevice();
    IgnoringErrors([this] { Filter.ShowNoDevice(); });
}

#include "app/Settings.h"

#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

constexpr int DocumentsFolderId = 5;

/// The least that a desktop's frame takes, in pixels: a border at each side, and a title bar.
constexpr int FrameWidth = 2, FrameHeight = 20;

QString NumberText(double value) {
    return QString::number(static_cast<double>(static_cast<float>(value)), 'g', 7);
}

struct OptionBit {
    const CheckControl& Check;
    int Bit;
};

QString MaskText(std::initializer_list<OptionBit> options) {
    int mask = 0;
    for (const OptionBit& option : options) {
        mask |= option.Check.Value() ? option.Bit : 0;
    }
    return QString::number(mask);
}

/// Reads a number from the store and converts it with `convert`. Failures name the key.
template <class Convert>
auto ReadAs(Convert convert, SettingsStore& store, const QString& key, double defaultValue) {
    const QString text = store.Read(key, NumberText(defaultValue));
    try {
        return convert(TextToNumber(text));
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number, u"%1 (setting \"%2\": \"%3\", in \"%4\")"_s.arg(
                                             error.Description, key, text, store.Name()));
    }
}

} // namespace

QString GetSpecialFolderName(Shell& shell, int folderId) {
    return folderId == DocumentsFolderId ? shell.DocumentsFolder() : QString();
}

Settings::Settings(SettingsStore& store, Shell& shell, WindowManager& windowManager, Layout& layout,
                   const SettingsControls& controls)
    : m_store(store), m_shell(shell), m_windowManager(windowManager), m_layout(layout),
      m_controls(controls) {
}

void Settings::Check() const {
    ReadMask(u"DestFolders"_s, 0);
    ReadMask(u"TrackNames"_s, 0);
    for (const char* key : {"Width", "Height", "Left", "Top", "Handle1", "Handle2"}) {
        ReadNumber(QString::fromLatin1(key), 0);
    }
}

double Settings::ReadNumber(const QString& key, double defaultValue) const {
    return ReadAs(ToSingle, m_store, key, defaultValue);
}

int Settings::ReadMask(const QString& key, int defaultValue) const {
    return ReadAs(ToInteger, m_store, key, defaultValue);
}

double Settings::ReadPosition(const QString& key, double length, Extent work, Extent all,
                              bool isCut) const {
    // A window that is longer than the screen shows its beginning.
    const double centred = std::max(work.Begin, work.Begin + work.Length / 2 - length / 2);
    const double position = ReadNumber(key, centred);
    const bool isSeen = position <= all.Begin + all.Length && position + length > all.Begin;
    return isCut || !isSeen ? centred : position;
}

void Settings::WriteNumber(const QString& key, double value) {
    m_store.Write(key, NumberText(value));
}

void Settings::RestoreBit(CheckControl& check, int mask, int bit) {
    if ((mask & bit) != 0) {
        check.SetValue(true);
    }
}

void Settings::RestoreOptions() {
    const int folders = ReadMask(u"DestFolders"_s, 3);
    RestoreBit(m_controls.chkArtist, folders, 1);
    RestoreBit(m_controls.chkAlbum, folders, 2);
    const int names = ReadMask(u"TrackNames"_s, 4);
    RestoreBit(m_controls.chkArtistName, names, 1);
    RestoreBit(m_controls.chkAlbumName, names, 2);
    RestoreBit(m_controls.chkTrackNum, names, 4);

    QString destination = GetSpecialFolderName(m_shell, DocumentsFolderId);
    if (!destination.isEmpty()) {
        destination = Paths::Join(destination, u"My Music"_s);
    }
    m_controls.txtDestination.SetText(m_store.Read(u"DestPath"_s, destination));
    m_controls.txtDestination.CompletePaths();
}

void Settings::RestoreWindow() {
    Window& window = m_controls.Form1;
    const ScreenArea work = m_windowManager.WorkArea();
    const ScreenArea all = m_windowManager.AllScreens();
    const double width = ReadNumber(u"Width"_s, window.Width());
    const double height = ReadNumber(u"Height"_s, window.Height());
    const bool tooWide = width > all.Width - FrameWidth * m_windowManager.TwipsPerPixelX();
    const bool tooHigh = height > all.Height - FrameHeight * m_windowManager.TwipsPerPixelY();
    window.SetSize(tooWide ? LargestWidth(m_windowManager) : width,
                   tooHigh ? LargestHeight(m_windowManager) : height);
    window.MoveTo(ReadPosition(u"Left"_s, window.Width(), {work.Left, work.Width},
                               {all.Left, all.Width}, tooWide),
                  ReadPosition(u"Top"_s, window.Height(), {work.Top, work.Height},
                               {all.Top, all.Height}, tooHigh));

    if (m_store.Read(u"WindowState"_s, u"0"_s) == u"1"_s) {
        window.SetState(WindowState::Maximized);
        window.Show();
        // The window has the size at which its splitters were left only once it is on the screen.
        window.Refresh();
    }
}

void Settings::RestoreHandles() {
    m_controls.Handle0.SetLeft(ReadNumber(u"Handle1"_s, m_controls.Handle0.Left()));
    m_controls.Handle1.SetLeft(ReadNumber(u"Handle2"_s, m_controls.Handle1.Left()));
    m_layout.LayOutLists();
}

QString Settings::StoreName() const {
    return m_store.Name();
}

bool Settings::Save() {
    m_store.Write(u"DestFolders"_s,
                  MaskText({{m_controls.chkArtist, 1}, {m_controls.chkAlbum, 2}}));
    m_store.Write(u"TrackNames"_s, MaskText({{m_controls.chkArtistName, 1},
                                             {m_controls.chkAlbumName, 2},
                                             {m_controls.chkTrackNum, 4}}));
    m_store.Write(u"DestPath"_s, m_controls.txtDestination.Text());

    Window& window = m_controls.Form1;
    if (window.Minimized()) {
        window.SetState(m_layout.WasMaximized ? WindowState::Maximized : WindowState::Normal);
    }
    WriteNumber(u"Handle1"_s, m_controls.Handle0.Left());
    WriteNumber(u"Handle2"_s, m_controls.Handle1.Left());
    m_store.Write(u"WindowState"_s, window.State() == WindowState::Maximized ? u"1"_s : u"0"_s);
    if (!m_layout.WasMaximized) {
        // Not for a maximised window: its normal size and position are those of an earlier exit.
        WriteNumber(u"Left"_s, window.Left());
        WriteNumber(u"Top"_s, window.Top());
        WriteNumber(u"Width"_s, window.Width());
        WriteNumber(u"Height"_s, window.Height());
    }
    return m_store.Flush();
}

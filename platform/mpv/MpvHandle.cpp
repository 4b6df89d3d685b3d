#include "platform/mpv/MpvHandle.h"

#include "platform/RuntimeError.h"
#include "platform/ThreadWorker.h"
#include "platform/mpv/MpvOptions.h"
#include "platform/player/CopyProtection.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstring>
#include <thread>
#include <utility>

namespace {

/// What the player is asked, and told to report.
enum Question { LoadFile, TrackList, PictureParameters, QuestionCount };
enum Property { Pause, Position, Duration, AtEnd };

/// The node of that name in a map; null where there is none of that format.
const mpv_node* Find(const mpv_node& map, const char* name, mpv_format format) {
    if (map.format != MPV_FORMAT_NODE_MAP) {
        return nullptr;
    }
    const mpv_node_list& list = *map.u.list;
    for (int i = 0; i < list.num; ++i) {
        if (std::strcmp(list.keys[i], name) == 0) {
            return list.values[i].format == format ? &list.values[i] : nullptr;
        }
    }
    return nullptr;
}

bool Flag(const mpv_node& map, const char* name) {
    const mpv_node* node = Find(map, name, MPV_FORMAT_FLAG);
    return node != nullptr && node->u.flag != 0;
}

qint64 Number(const mpv_node& map, const char* name) {
    const mpv_node* node = Find(map, name, MPV_FORMAT_INT64);
    return node != nullptr ? node->u.int64 : 0;
}

/// The value that a property was asked for.
const mpv_node& NodeOf(const mpv_event& reply) {
    static const mpv_node none = {};
    const auto& property = *static_cast<mpv_event_property*>(reply.data);
    return property.format == MPV_FORMAT_NODE ? *static_cast<mpv_node*>(property.data) : none;
}

bool IsVideo(const mpv_node& track) {
    const mpv_node* type = Find(track, "type", MPV_FORMAT_STRING);
    return type != nullptr && std::strcmp(type->u.string, "video") == 0;
}

/// What the player calls the file that it reads: a share of it, since it may let go of it later
/// than we do.
using FilePointer = std::shared_ptr<MediaFile>;

MediaFile& FileOf(void* cookie) {
    return **static_cast<FilePointer*>(cookie);
}

/// The ending of a name, if it is a harmless word.
QByteArray SafeSuffix(const QString& suffix) {
    const auto harmless = [](QChar c) { return c.unicode() < 128 && c.isLetterOrNumber(); };
    const bool isWord = suffix.size() <= 5 && std::all_of(suffix.begin(), suffix.end(), harmless);
    return isWord ? suffix.toLower().toLatin1() : QByteArray();
}

} // namespace

std::unique_ptr<PlayerEngine> PlayerEngine::Make() {
    return std::make_unique<MpvHandle>();
}

MpvHandle::MpvHandle() {
    // The player reads and writes numbers with a point, and refuses to run in other locales.
    std::setlocale(LC_NUMERIC, "C");
    m_mpv.reset(mpv_create());
    if (m_mpv == nullptr) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    SetMpvOptions(m_mpv.get());
    if (mpv_initialize(m_mpv.get()) < 0 ||
        mpv_stream_cb_add_ro(m_mpv.get(), "songlift", m_source.get(), OpenStream) < 0) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    mpv_observe_property(m_mpv.get(), Pause, "pause", MPV_FORMAT_FLAG);
    mpv_observe_property(m_mpv.get(), Position, "time-pos", MPV_FORMAT_DOUBLE);
    mpv_observe_property(m_mpv.get(), Duration, "duration", MPV_FORMAT_DOUBLE);
    mpv_observe_property(m_mpv.get(), AtEnd, "eof-reached", MPV_FORMAT_FLAG);
    mpv_set_wakeup_callback(
        m_mpv.get(), [](void* self) { static_cast<MpvHandle*>(self)->HearWakeup(); }, this);
    m_renderer = std::make_unique<MpvRenderer>(m_mpv.get(), [this] {
        if (FrameReady) {
            FrameReady();
        }
    });
}

MpvHandle::~MpvHandle() {
    const bool hangs = m_hangs || !CloseFile();
    mpv_set_wakeup_callback(m_mpv.get(), nullptr, nullptr);
    const auto end = [mpv = m_mpv.get(), context = m_renderer->Release(), source = m_source] {
        mpv_render_context_free(context);
        mpv_terminate_destroy(mpv);
    };
    m_mpv.release();
    if (hangs) {
        std::thread(end).detach();
    } else {
        ThreadWorker().DoLater(end); // waits a moment for it
    }
}

void MpvHandle::HearWakeup() {
    if (!m_wakeupUnderWay.exchange(true)) {
        QMetaObject::invokeMethod(
            &m_receiver, [this] { HandleEvents(); }, Qt::QueuedConnection);
    }
}

int MpvHandle::OpenStream(void* self, char* address, mpv_stream_cb_info* info) {
    Source& source = *static_cast<Source*>(self);
    FilePointer file;
    {
        const std::lock_guard lock(source.Mutex);
        file = source.Address == address ? source.File : nullptr;
    }
    if (file == nullptr || !file->Open() || IsCopyProtected(*file)) {
        return MPV_ERROR_LOADING_FAILED;
    }
    info->cookie = new FilePointer(file);
    info->read_fn = [](void* cookie, char* buffer, uint64_t size) -> int64_t {
        constexpr uint64_t block = 1 << 20;
        return FileOf(cookie).Read(buffer, static_cast<qint64>(std::min(size, block)));
    };
    info->seek_fn = [](void* cookie, int64_t position) -> int64_t {
        const qint64 result = FileOf(cookie).Seek(position);
        return result >= 0 ? result : qint64(MPV_ERROR_GENERIC);
    };
    info->size_fn = [](void* cookie) -> int64_t { return FileOf(cookie).Size(); };
    info->close_fn = [](void* cookie) { delete static_cast<FilePointer*>(cookie); };
    return 0;
}

quint64 MpvHandle::ReplyId(int question) const {
    return m_load * QuestionCount + static_cast<quint64>(question);
}

void MpvHandle::Load(std::shared_ptr<MediaFile> file, const QString& suffix) {
    CloseFile();
    ForgetFile(Playback::Stage::Opening);
    const QByteArray address =
        "songlift://" + QByteArray::number(m_load) + "/media." + SafeSuffix(suffix);
    {
        const std::lock_guard lock(m_source->Mutex);
        m_source->File = std::move(file);
        m_source->Address = address;
    }
    SetPaused(false);
    const char* command[] = {"loadfile", address.constData(), "replace", nullptr};
    if (mpv_command_async(m_mpv.get(), ReplyId(LoadFile), command) < 0) {
        Fail();
    }
}

/// False when the file is still being read.
bool MpvHandle::CloseFile() {
    std::shared_ptr<MediaFile> file;
    {
        const std::lock_guard lock(m_source->Mutex);
        file = std::exchange(m_source->File, nullptr);
    }
    return file == nullptr || file->Close();
}

bool MpvHandle::Stop() {
    const char* command[] = {"stop", nullptr};
    mpv_command_async(m_mpv.get(), 0, command);
    ForgetFile(Playback::Stage::Empty);
    m_hangs = !CloseFile();
    return !m_hangs;
}

/// From now on nothing that is said about an earlier file counts. What the player reports by itself
/// is kept: it reports only what differs from its last report.
void MpvHandle::ForgetFile(Playback::Stage stage) {
    ++m_load;
    m_entry = -1;
    m_state.At = stage;
    m_state.Shows = Playback::Picture::None;
    m_state.PictureSize = {};
    m_state.Rotation = 0;
    m_started = false;
    m_seeking = false;
}

void MpvHandle::Fail() {
    ForgetFile(Playback::Stage::Failed);
    CloseFile();
}

bool MpvHandle::Known() const {
    const bool awaitsFilm =
        m_state.Shows == Playback::Picture::Film && m_state.PictureSize.isEmpty();
    return m_state.At != Playback::Stage::Opening && !awaitsFilm;
}

bool MpvHandle::WaitUntilKnown(int milliseconds) {
    constexpr double betweenPictures = 0.005; // seconds
    const QDeadlineTimer deadline(milliseconds);
    while (!Known() && !deadline.hasExpired()) {
        Handle(*mpv_wait_event(m_mpv.get(), betweenPictures));
        m_renderer->SkipWaiting();
    }
    return Known();
}

void MpvHandle::SetPaused(bool paused) {
    int flag = paused ? 1 : 0;
    mpv_set_property_async(m_mpv.get(), 0, "pause", MPV_FORMAT_FLAG, &flag);
}

void MpvHandle::SeekTo(double position) {
    // Until the player is there it may still report where it was.
    m_seeking = true;
    m_state.Position = position;
    if (m_started) {
        SendSeek(position);
    }
}

void MpvHandle::SendSeek(double position) {
    const QByteArray seconds = QByteArray::number(position, 'f', 3);
    const char* command[] = {"seek", seconds.constData(), "absolute", nullptr};
    mpv_command_async(m_mpv.get(), 0, command);
}

void MpvHandle::SetVolume(int percent) {
    double volume = percent;
    mpv_set_property_async(m_mpv.get(), 0, "volume", MPV_FORMAT_DOUBLE, &volume);
}

void MpvHandle::HandleEvents() {
    m_wakeupUnderWay = false;
    bool changed = false;
    for (;;) {
        const mpv_event& event = *mpv_wait_event(m_mpv.get(), 0);
        if (event.event_id == MPV_EVENT_NONE) {
            break;
        }
        changed = Handle(event) || changed;
    }
    if (changed && Changed) {
        Changed();
    }
}

/// Returns whether the state has changed.
bool MpvHandle::Handle(const mpv_event& event) {
    switch (event.event_id) {
    case MPV_EVENT_START_FILE:
        m_startedEntry = static_cast<mpv_event_start_file*>(event.data)->playlist_entry_id;
        return false;
    case MPV_EVENT_FILE_LOADED:
        m_loadedEntry = m_startedEntry;
        AskForPicture();
        return false;
    case MPV_EVENT_PLAYBACK_RESTART:
        if (!m_started && m_seeking) {
            SendSeek(m_state.Position); // asked for before the player could
        } else {
            m_seeking = false;
        }
        m_started = true;
        return false;
    case MPV_EVENT_VIDEO_RECONFIG:
        AskForPicture();
        return false;
    case MPV_EVENT_END_FILE:
        return HandleEnd(static_cast<mpv_event_end_file*>(event.data)->playlist_entry_id);
    case MPV_EVENT_COMMAND_REPLY:
    case MPV_EVENT_GET_PROPERTY_REPLY:
        return HandleReply(event);
    case MPV_EVENT_PROPERTY_CHANGE:
        return HandleProperty(event);
    default:
        return false;
    }
}

/// Asks which tracks play and how large the picture is.
void MpvHandle::AskForPicture() {
    if (m_entry != -1 && m_loadedEntry == m_entry) {
        // In this order: how the film is turned must be known before its size comes.
        mpv_get_property_async(m_mpv.get(), ReplyId(TrackList), "track-list", MPV_FORMAT_NODE);
        mpv_get_property_async(m_mpv.get(), ReplyId(PictureParameters), "video-out-params",
                               MPV_FORMAT_NODE);
    }
}

/// A file that has been played stays open; one that ends by itself could not be played.
bool MpvHandle::HandleEnd(qint64 entry) {
    const bool ours = m_entry != -1 && entry == m_entry;
    if (ours) {
        Fail();
    }
    return ours;
}

bool MpvHandle::HandleReply(const mpv_event& event) {
    if (event.reply_userdata == ReplyId(LoadFile)) {
        return HandleLoadReply(event);
    }
    if (event.error < 0) {
        return false; // there is no picture
    }
    if (event.reply_userdata == ReplyId(TrackList)) {
        TakeTracks(NodeOf(event));
        return true;
    }
    if (event.reply_userdata == ReplyId(PictureParameters)) {
        TakePictureSize(NodeOf(event));
        return true;
    }
    return false;
}

bool MpvHandle::HandleLoadReply(const mpv_event& event) {
    if (event.error < 0) {
        Fail();
        return true;
    }
    const mpv_node& result = static_cast<mpv_event_command*>(event.data)->result;
    m_entry = Number(result, "playlist_entry_id");
    return false;
}

void MpvHandle::TakeTracks(const mpv_node& tracks) {
    m_state.At = Playback::Stage::Open;
    m_state.Shows = Playback::Picture::None;
    if (tracks.format != MPV_FORMAT_NODE_ARRAY) {
        return;
    }
    for (int i = 0; i < tracks.u.list->num; ++i) {
        const mpv_node& track = tracks.u.list->values[i];
        if (IsVideo(track) && Flag(track, "selected")) {
            m_state.Shows =
                Flag(track, "albumart") ? Playback::Picture::Cover : Playback::Picture::Film;
            const int quarters = static_cast<int>(Number(track, "demux-rotation") / 90 % 4);
            m_state.Rotation = (quarters + 4) % 4 * 90;
        }
    }
}

void MpvHandle::TakePictureSize(const mpv_node& parameters) {
    const auto pixels = [&](const char* name) {
        return static_cast<int>(std::clamp<qint64>(Number(parameters, name), 0, 100'000));
    };
    const QSize decoded(pixels("dw"), pixels("dh"));
    m_state.PictureSize = m_state.Rotation % 180 == 0 ? decoded : decoded.transposed();
}

bool MpvHandle::HandleProperty(const mpv_event& event) {
    const auto& property = *static_cast<mpv_event_property*>(event.data);
    // Without a value there is none: nothing plays.
    const double number =
        property.format == MPV_FORMAT_DOUBLE ? *static_cast<double*>(property.data) : 0;
    const bool flag = property.format == MPV_FORMAT_FLAG && *static_cast<int*>(property.data) != 0;
    switch (event.reply_userdata) {
    case Pause:
        m_state.Paused = flag;
        return true;
    case Position:
        if (!m_seeking) {
            m_state.Position = std::isfinite(number) ? std::max(0.0, number) : 0;
        }
        return true;
    case Duration:
        m_state.Duration = std::isfinite(number) ? std::max(0.0, number) : 0;
        return true;
    case AtEnd:
        m_seeking = m_seeking && !flag;
        m_state.AtEnd = flag;
        return true;
    default:
        return false;
    }
}

#include "platform/mpv/MpvRenderer.h"

#include "platform/RuntimeError.h"

#include <QSysInfo>

#include <array>

void MpvRenderer::Free::operator()(mpv_render_context* context) const {
    mpv_render_context_set_update_callback(context, nullptr, nullptr);
    mpv_render_context_free(context);
}

MpvRenderer::MpvRenderer(mpv_handle* mpv, std::function<void()> frameReady)
    : m_frameReady(std::move(frameReady)) {
    char type[] = MPV_RENDER_API_TYPE_SW;
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_API_TYPE, type},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    mpv_render_context* context = nullptr;
    if (mpv_render_context_create(&context, mpv, parameters) < 0) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    m_context.reset(context);
    mpv_render_context_set_update_callback(
        context, [](void* self) { static_cast<MpvRenderer*>(self)->HearUpdate(); }, this);
}

MpvRenderer::~MpvRenderer() = default;

mpv_render_context* MpvRenderer::Release() {
    mpv_render_context_set_update_callback(m_context.get(), nullptr, nullptr);
    return m_context.release();
}

void MpvRenderer::HearUpdate() {
    if (m_updateUnderWay.exchange(true)) {
        return;
    }
    QMetaObject::invokeMethod(
        &m_receiver,
        [this] {
            m_updateUnderWay = false;
            if (HasFrame()) {
                m_frameReady();
            }
        },
        Qt::QueuedConnection);
}

bool MpvRenderer::HasFrame() {
    return (mpv_render_context_update(m_context.get()) & MPV_RENDER_UPDATE_FRAME) != 0;
}

void MpvRenderer::Render(QImage& image) {
    std::array<int, 2> size = {image.width(), image.height()};
    // RGB32 as its bytes stand in memory.
    const bool littleEndian = QSysInfo::ByteOrder == QSysInfo::LittleEndian;
    QByteArray format(littleEndian ? "bgr0" : "0rgb");
    size_t stride = static_cast<size_t>(image.bytesPerLine());
    // The window must not wait for the moment at which a frame is due.
    int block = 0;
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_SW_SIZE, size.data()},
                                     {MPV_RENDER_PARAM_SW_FORMAT, format.data()},
                                     {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                     {MPV_RENDER_PARAM_SW_POINTER, image.bits()},
                                     {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &block},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    mpv_render_context_render(m_context.get(), parameters);
}

void MpvRenderer::SkipWaiting() {
    if (m_updateUnderWay && HasFrame()) {
        Skip();
    }
}

void MpvRenderer::Skip() {
    int skip = 1;
    int block = 0;
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_SKIP_RENDERING, &skip},
                                     {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &block},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    mpv_render_context_render(m_context.get(), parameters);
}

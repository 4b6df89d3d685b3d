#include "platform/windows/QuitRequests.h"

#include <QGuiApplication>
#include <QSessionManager>

#include <utility>

QuitRequests::QuitRequests(std::function<void()> asked) {
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, &m_receiver,
        [asked = std::move(asked)](QSessionManager&) { asked(); }, Qt::DirectConnection);
}

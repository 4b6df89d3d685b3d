#include "platform/linux/QuitSignals.h"

#include <csignal>
#include <fcntl.h>

namespace {

constexpr int Signals[] = {SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t writeEnd = -1;

void Tell(int) {
    const int error = errno;
    // If the pipe is full, an earlier signal is about to be reported.
    [[maybe_unused]] const ssize_t written = ::write(writeEnd, "", 1);
    errno = error;
}

void Handle(int signal, void (*handler)(int)) {
    struct sigaction before = {};
    ::sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN) {
        struct sigaction action = {};
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace

QuitSignals::QuitSignals(std::function<void()> asked) : m_asked(std::move(asked)) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // the signals then end the program at once
    }
    m_readEnd = FileDescriptor(ends[0]);
    m_writeEnd = FileDescriptor(ends[1]);
    m_notifier = std::make_unique<QSocketNotifier>(m_readEnd.Get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { Hear(); });
    writeEnd = m_writeEnd.Get();
    for (const int signal : Signals) {
        Handle(signal, Tell);
    }
}

QuitSignals::~QuitSignals() {
    for (const int signal : Signals) {
        Handle(signal, SIG_DFL);
    }
}

void QuitSignals::Hear() {
    char bytes[16];
    while (::read(m_readEnd.Get(), bytes, sizeof bytes) > 0) {
    }
    m_asked();
}

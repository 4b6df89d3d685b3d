#include "tests/bench/BenchProgram.h"

#include <QCoreApplication>

#include <algorithm>

TimedEventLoop::TimedEventLoop() {
    Start();
}

void TimedEventLoop::Start() {
    InYields = 0;
    LongestPause = 0;
    m_sinceYield.start();
}

void TimedEventLoop::Yield() {
    LongestPause = std::max(LongestPause, static_cast<double>(m_sinceYield.nsecsElapsed()) / 1e9);
    m_sinceYield.start();
    m_events.Yield();
    InYields += static_cast<double>(m_sinceYield.nsecsElapsed()) / 1e9;
    m_sinceYield.start();
}

BenchProgram::BenchProgram() {
    const Services services{m_files,    m_drives, m_store,      m_shell, m_windowManager,
                            m_messages, m_events, m_background, m_ahead};
    m_form = std::make_unique<Form1>(services, m_window.Controls(), m_preview.Controls(),
                                     [](OverwritePrompt&) {});
    m_form->Form_Load();
    Paint();
}

void BenchProgram::Paint() {
    QCoreApplication::processEvents();
}

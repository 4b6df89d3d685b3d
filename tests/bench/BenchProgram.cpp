#include "tests/bench/BenchProgram.h"

#include <QCoreApplication>

BenchProgram::BenchProgram() {
    const Services services{m_files,         m_drives,   m_store, m_shell,
                            m_windowManager, m_messages, m_events};
    m_form = std::make_unique<Form1>(services, m_window.Controls(), m_preview.Controls(),
                                     [](OverwritePrompt&) {});
    m_form->Form_Load();
    Paint();
}

void BenchProgram::Paint() {
    QCoreApplication::processEvents();
}

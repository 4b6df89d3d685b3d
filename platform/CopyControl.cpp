#include "platform/CopyControl.h"

#include <utility>

bool CopyControl::BeginPlacing() const {
    int flags = m_state->Flags;
    while ((flags & Stopped) == 0) {
        if (m_state->Flags.compare_exchange_weak(flags, flags | Placing)) {
            return true;
        }
    }
    return false;
}

void CopyControl::SetRemover(std::function<void()> remove) const {
    const std::lock_guard lock(m_state->RemoverMutex);
    m_state->Remover = std::move(remove);
}

void CopyControl::RemoveLeftover() const {
    std::function<void()> remove;
    {
        const std::lock_guard lock(m_state->RemoverMutex);
        remove = m_state->Flags == Stopped ? m_state->Remover : nullptr;
    }
    if (remove) {
        remove();
    }
}

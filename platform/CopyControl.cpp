#include "platform/CopyControl.h"

#include <utility>

bool CopyControl::BeginPlacing() const {
    int flags = 0;
    return m_state->Flags.compare_exchange_strong(flags, Placing);
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

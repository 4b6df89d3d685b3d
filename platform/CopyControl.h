#pragma once

#include <QtGlobal>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

/// How a long operation on files and its caller communicate, each on a thread of its own. Copies of
/// one CopyControl refer to the same operation.
class CopyControl {
public:
    /// Asks the operation to end and leave nothing behind. From now on no file gets its final name,
    /// except one that is just getting it.
    void Stop() const { m_state->Flags |= Stopped; }
    /// Bytes done so far.
    qint64 BytesDone() const { return m_state->BytesDone; }
    /// Removes what a stopped operation has left beside its target so far. The operation itself
    /// would do so at its end, but that may come late where the device hangs. While the operation
    /// writes or places the file, the target's disk may be what hangs, so the removal is left to
    /// the operation. May take long itself.
    void RemoveLeftover() const;

    // ---- for the operation

    /// Enclose the writing of each block; several threads may write at once.
    void BeginWriting() const { m_state->Flags += Writing; }
    void EndWriting() const { m_state->Flags -= Writing; }
    void AddBytes(qint64 bytes) const { m_state->BytesDone += bytes; }
    bool IsStopped() const { return (m_state->Flags & Stopped) != 0; }
    /// All bytes are there, and the file is about to get its final name. False when it must not any
    /// more.
    bool BeginPlacing() const;
    /// The file has its final name and another one may follow, or it has not got it after all.
    void EndPlacing() const { m_state->Flags &= ~Placing; }
    /// Sets what RemoveLeftover does; null once nothing is left over. `remove` may be called on any
    /// thread, and must spare a file of the same name that belongs to another operation.
    void SetRemover(std::function<void()> remove) const;

private:
    /// The bits from Writing on count those who write.
    enum Flag : int { Stopped = 1, Placing = 2, Writing = 4 };

    struct State {
        std::atomic<int> Flags = 0;
        std::atomic<qint64> BytesDone = 0;
        std::mutex RemoverMutex;
        std::function<void()> Remover;
    };

    std::shared_ptr<State> m_state = std::make_shared<State>();
};

#pragma once

#include <QtGlobal>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

/// What a long operation on files and the one who waits for it tell each other, on two threads. The
/// copies of one of these speak of the same operation.
class CopyControl {
public:
    /// Asks the operation to end with nothing left of it. No file gets its final name from now on;
    /// where one is just getting it, that comes to its end.
    void Stop() const { m_state->Flags |= Stopped; }
    /// Bytes that are done so far.
    qint64 BytesDone() const { return m_state->BytesDone; }
    /// Removes what a stopped operation has left beside its target so far. The operation would do
    /// it at its end, which may be far away where the device hangs; where the target's disk hangs,
    /// it is left to do so. May take long itself.
    void RemoveLeftover() const;

    // ---- what the operation says and asks

    /// A block is going to be written, and was.
    void BeginWriting() const { m_state->Flags |= Writing; }
    void EndWriting() const { m_state->Flags &= ~Writing; }
    void AddBytes(qint64 bytes) const { m_state->BytesDone += bytes; }
    bool IsStopped() const { return (m_state->Flags & Stopped) != 0; }
    /// All bytes are there, and the file is going to get its final name: false where it may not any
    /// more.
    bool BeginPlacing() const;
    /// It has not got its name after all.
    void EndPlacing() const { m_state->Flags &= ~Placing; }
    /// How RemoveLeftover does it; null once nothing is left over. It is called on any thread, and
    /// removes nothing that has the same name by then but is another operation's.
    void SetRemover(std::function<void()> remove) const;

private:
    enum Flag : int { Stopped = 1, Placing = 2, Writing = 4 };

    struct State {
        std::atomic<int> Flags = 0;
        std::atomic<qint64> BytesDone = 0;
        std::mutex RemoverMutex;
        std::function<void()> Remover;
    };

    std::shared_ptr<State> m_state = std::make_shared<State>();
};

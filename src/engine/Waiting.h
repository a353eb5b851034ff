#pragma once

namespace engine {

/// What a program wants to know, and to decide, while an engine can't go on: another program holds the file,
/// or writes that have failed together run a second time.
class WaitingListener {
public:
    WaitingListener() = default;
    WaitingListener(const WaitingListener&) = delete;
    WaitingListener& operator=(const WaitingListener&) = delete;
    virtual ~WaitingListener() = default;

    /// Asked every few milliseconds. False ends the waiting at once, since the program is about to end: what
    /// was waited for fails then. The engine is in the middle of its work and must not be called.
    virtual bool GoesOn() = 0;

    /// Another program has held the file up for as long as is waited for it. Writes go on in memory until it
    /// lets go, or until their room is full. Told again with false when they have reached the disk.
    virtual void HeldUp(bool isHeldUp) = 0;
};

/// The listener of this process. It isn't owned; null takes it away.
void SetWaitingListener(WaitingListener* listener);

/// What the listener answers; without one the engine goes on.
bool GoesOn();
void TellHeldUp(bool isHeldUp);

}  // namespace engine

#pragma once

#include "engine/Waiting.h"

namespace tools {

/// A bar on standard error that is drawn only where it can be redrawn in place: on a terminal. It also tells
/// when the import waits for another program; where there is no bar to say it, that is a line of its own.
class ProgressBar : public engine::WaitingListener {
public:
    explicit ProgressBar(bool isShown) : isShown_(isShown) {}

    void Show(int done, int total);

    bool GoesOn() override;
    void HeldUp(bool isHeldUp) override;

    /// Makes room for a line of text; the bar comes back with its next step.
    void Clear();

private:
    void Draw() const;

    bool isShown_;
    bool isHeldUp_ = false;
    int percent_ = -1;
};

}  // namespace tools

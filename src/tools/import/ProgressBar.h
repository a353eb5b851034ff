#pragma once

namespace tools {

/// A bar on standard error that is drawn only where it can be redrawn in place: on a terminal.
class ProgressBar {
public:
    explicit ProgressBar(bool isShown) : isShown_(isShown) {}

    void Show(int done, int total);

    /// Makes room for a line of text; the bar comes back with its next step.
    void Clear();

private:
    bool isShown_;
    int percent_ = -1;
};

}  // namespace tools

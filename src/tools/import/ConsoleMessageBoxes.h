#pragma once

#include "platform/MessageBox.h"
#include "tools/import/ProgressBar.h"

namespace tools {

/// Message boxes of a program without windows: lines on standard error. Whatever the import reports on its
/// way passes here, so this is where its failures are counted. Questions are answered No, as nobody is there.
class ConsoleMessageBoxes : public platform::MessageBoxPort {
public:
    explicit ConsoleMessageBoxes(ProgressBar& progressBar);
    ~ConsoleMessageBoxes() override;

    platform::Answer Show(const platform::MessageBoxRequest& request) override;

    int Shown() const { return shown_; }

private:
    ProgressBar& progressBar_;
    int shown_ = 0;
};

}  // namespace tools

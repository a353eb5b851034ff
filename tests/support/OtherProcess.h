#pragma once

#include <functional>

/// A second process, split off from this one, that does something and then keeps what it has until it is
/// killed.
class OtherProcess {
public:
    /// Comes back when the work is done.
    explicit OtherProcess(const std::function<bool()>& work);
    ~OtherProcess() { Kill(); }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    /// What the work came to.
    bool Succeeded() const { return succeeded_; }

    int Number() const { return number_; }

    /// As the system does it, with no chance to tidy up. Comes back when the process is gone.
    void Kill();

private:
    int number_ = 0;
    bool succeeded_ = false;
};

// How a simulated process ends from within: by exceptions that no handler of a program catches.
#pragma once

namespace sys::simulated {

/// The process has ended (`System::endProcess`). Not a `std::exception`, so that only who means it catches
/// it.
class ProcessEnded {
public:
    explicit ProcessEnded(int exitCode) : exitCode_(exitCode) {}
    int exitCode() const { return exitCode_; }
    /// Whether it was a loop without end that was unwound, and not the program that ended itself.
    bool unwound() const { return unwound_; }

protected:
    struct Unwinding {};
    explicit ProcessEnded(Unwinding) : unwound_(true) {}

private:
    int exitCode_ = 0;
    bool unwound_ = false;
};

/// The limit of looks at the event queue is reached (`Machine::setPassLimit`).
class ProcessUnwound : public ProcessEnded {
public:
    ProcessUnwound() : ProcessEnded(Unwinding{}) {}
};

} // namespace sys::simulated

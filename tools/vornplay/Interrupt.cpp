#include "Interrupt.h"

#include <atomic>
#include <csignal>

namespace {

std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "handlers must not wait");

extern "C" void NoteInterrupt(int /*signal*/) {
    interrupted = true;
}

void Catch(int signal) {
    struct sigaction action {};
    // The program may have been started to ignore the signal.
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) {
        return;
    }
    action = {};
    action.sa_handler = NoteInterrupt;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(signal, &action, nullptr);
}

}  // namespace

void CatchInterrupts() {
    Catch(SIGINT);
    Catch(SIGTERM);
}

bool Interrupted() {
    return interrupted;
}

#include "publish/Publisher.h"

#include <csignal>
#include <thread>
#include <utility>

namespace tarnlog {

/// The thread owns all that it needs: looking up a name may hold it longer than the recorder wants to live.
/// Signals are for the thread that runs the program.
Publisher::Publisher(const PublishSetup& setup) {
  auto worker = std::make_unique<PublishWorker>(setup, mailbox_);
  sigset_t all{};
  sigset_t before{};
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  try {
    std::thread([own = std::move(worker)] { own->run(); }).detach();
  } catch (...) {
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    throw;
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

Publisher::~Publisher() { end(std::chrono::milliseconds(0)); }

}  // namespace tarnlog

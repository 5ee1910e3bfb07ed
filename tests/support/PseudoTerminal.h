#pragma once

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace tarnlog::test {

/// A mount namespace of this process with pseudo-terminals of its own, for a root folder that has none. False
/// where the system allows no such thing.
inline bool mountPseudoTerminals() {
  const uid_t user = getuid();
  if (user != 0) {
    if (unshare(CLONE_NEWUSER) != 0) return false;
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1\n";
  }
  return unshare(CLONE_NEWNS) == 0 && mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("devpts", "/dev/pts", "devpts", 0, "newinstance,ptmxmode=0666") == 0;
}

inline int openMaster() {
  const int master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (master >= 0 && grantpt(master) == 0 && unlockpt(master) == 0) return master;
  if (master >= 0) close(master);
  return -1;
}

/// The master's end of a new pseudo-terminal, whose other end has the name `ptsname`; -1 where there is none.
inline int openPseudoTerminal() {
  const int master = openMaster();
  return master >= 0 || !mountPseudoTerminals() ? master : openMaster();
}

}  // namespace tarnlog::test

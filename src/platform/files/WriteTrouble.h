#pragma once

#include <cstdint>
#include <string>

namespace tarnlog {

/// What is told about a file to which something that was to be written does not get.
struct WriteTrouble {
  enum class Kind {
    Begun,     ///< writes fail from now on, or the file has no name any more
    Ended,     ///< a write succeeded again, or the file was closed
    CutShort,  ///< another program took away part of what was in the file; writing goes on
    NotSynced  ///< what is in the file may not be there after a power cut; writing goes on
  };

  Kind kind = Kind::Begun;
  std::string path;
  std::string why = {};          ///< but at the end: the system's text, or what was seen
  std::uint64_t lostRows = 0;    ///< at the end: of this outage
  std::uint64_t lostInFile = 0;  ///< at the end: of all outages of this file
  bool closed = false;           ///< it ended because the file was closed; nothing more will come
};

}  // namespace tarnlog

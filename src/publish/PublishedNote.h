#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// How far a measurement file is published at one place, and what of it.
struct PublishedUntil {
  std::string to;       ///< the broker's address with its topic
  std::string vehicle;  ///< as it is called in the topics
  std::vector<std::string> data;
  std::int64_t every = 0;          ///< milliseconds
  std::uint64_t acknowledged = 0;  ///< the broker has all answers up to this sequence number
  bool complete = false;           ///< those were all
};

/// What stands in a file NAME.published beside NAME.mf4. It tells no less than what was acknowledged when it
/// was written: lost, all is published again.
struct PublishedNote {
  std::string acquisition;
  std::vector<PublishedUntil> places;

  /// Of this measurement file.
  static std::string pathOf(std::string_view measurement);
  /// What cannot be read is an empty note.
  static PublishedNote parse(std::string_view text);
  std::string text() const;
  /// Forgets all when it is of another acquisition, whose file had the same name.
  void setAcquisition(std::string_view id);
  /// Of that place; made when there is none.
  PublishedUntil& at(std::string_view to);
};

}  // namespace tarnlog

#pragma once

#include <cstdint>

#include "platform/xml/ContentHandler.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// A condition that starts or stops a recording.
class oTarnTrigger {
 public:
  static constexpr std::int32_t kManual = 0;
  static constexpr std::int32_t kChannel = 1;
  static constexpr std::int32_t kTime = 2;

  std::int32_t modeTrigger = 0;  ///< 0 start trigger, 1 stop trigger
  std::int32_t typeTrigger = 0;  ///< kManual, kChannel, kTime (stop trigger only)
  std::int32_t prepost =
      0;  ///< seconds: negative = history before the start; |value| = continuation after the stop
  bool restart = true;            ///< start trigger: kept for the user, without effect on the acquisition
  std::int32_t timeSeconde = 60;  ///< seconds until a time trigger stops
  std::int32_t edge = 0;          ///< 1 rising, -1 falling, anything else never fires
  double level = 0;               ///< threshold in the watched item's unit
  std::int32_t DataIndex = 0;     ///< `index` of the watched data item

  void SaxWriteTrigger(ContentHandler& handler) const;
  void SaxWriteTriggerStart(ContentHandler& handler) const;
  void SaxWriteTriggerStop(ContentHandler& handler) const;

  /// Both take the file's "Parameters" element and reset the trigger first.
  void ReadTriggerStart(XmlElement parameters);
  void ReadTriggerStop(XmlElement parameters);
};

}  // namespace tarnlog

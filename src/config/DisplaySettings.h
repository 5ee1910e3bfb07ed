#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>

#include "platform/xml/ContentHandler.h"
#include "platform/xml/XmlDocument.h"

/// How a data item is shown while recording: one small class per kind of display, each of which reads itself
/// from and writes itself to its element of the configuration file. Colours are 0x00BBGGRR.
namespace tarnlog {

/// What `ScopeType` of an item can be, with its code.
enum class DisplayKind : std::int32_t { kNone, kDigital, kBarGraph, kGraph, kGraphIndex, kGraphAxeX };

/// Where a control was placed, in twips; -1 = not set, the layout decides.
struct DisplayPosition {
  float left = -1;
  float top = -1;
  float width = -1;
  float height = -1;

  /// With -1 for every number below 0.
  DisplayPosition normalized() const;
};

/// Reads a "Pos" element: attributes left, top, Width, Height.
DisplayPosition ReadXmlPos(XmlElement pos);

/// The item is recorded and not shown.
class NoDisplay {
 public:
  static constexpr DisplayKind kKind = DisplayKind::kNone;
  static constexpr const char* kName =
      "None";  ///< in files: of the kind, and of the element with its settings

  void SetXml(XmlElement /*element*/) {}
  void SaxWrite(ContentHandler& /*handler*/) const {}
};

class oTarnNumeric {
 public:
  static constexpr DisplayKind kKind = DisplayKind::kDigital;
  static constexpr const char* kName = "Digital";

  std::string Caption;
  DisplayPosition position;

  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;
};

class oTarnSlide {
 public:
  static constexpr DisplayKind kKind = DisplayKind::kBarGraph;
  static constexpr const char* kName = "BarGraph";

  std::string Caption;
  DisplayPosition position;
  double mini = 0;
  double maxi = 100;
  std::int32_t Color = 0xFF0000;

  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;
};

class oTarnGraph {
 public:
  static constexpr DisplayKind kKind = DisplayKind::kGraph;
  static constexpr const char* kName = "Graph";
  static constexpr std::int32_t kDefaultPoints = 500;

  std::string Caption;
  DisplayPosition position;
  bool AxeYAuto = false;
  double AxeYmini = 0;
  double AxeYmaxi = 100;
  std::int32_t points = kDefaultPoints;  ///< points across the X axis
  std::int32_t Color = 0xFF0000;

  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;
};

class oTarnGraphIndex {
 public:
  static constexpr DisplayKind kKind = DisplayKind::kGraphIndex;
  static constexpr const char* kName = "GraphIndex";

  std::string Caption;
  std::int32_t Color = 0x00FF00;
  std::int32_t index = 0;  ///< the Graph item whose graph receives this curve

  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;
};

class oTarnGraphAxeX {
 public:
  static constexpr DisplayKind kKind = DisplayKind::kGraphAxeX;
  static constexpr const char* kName = "GraphAxeX";

  std::string Caption;
  bool axeXAuto = true;
  double axeXmini = 0;
  double axeXmaxi = 100;
  std::int32_t index = 0;  ///< the Graph item whose X axis this item drives

  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;
};

using DisplaySettings =
    std::variant<NoDisplay, oTarnNumeric, oTarnSlide, oTarnGraph, oTarnGraphIndex, oTarnGraphAxeX>;

template <class... Settings>
constexpr auto kindsOf(std::type_identity<std::variant<Settings...>> /*settings*/) {
  return std::array{Settings::kKind...};
}
/// All kinds, in the order in which they are offered.
inline constexpr auto kDisplayKinds = kindsOf(std::type_identity<DisplaySettings>());

/// Reads what a "Scope" element holds: settings that it lacks have the defaults of their class. None when its
/// type is unknown.
std::optional<DisplaySettings> readDisplay(XmlElement scope);

}  // namespace tarnlog

#pragma once

#include <cstdint>
#include <string>

#include "platform/xml/ContentHandler.h"
#include "platform/xml/XmlDocument.h"

/// How a data item is shown while recording: one small class per display type, each of which reads itself
/// from and writes itself to its element of the configuration file. Colours are 0x00BBGGRR.
namespace tarnlog {

/// Where a control was placed, in twips; -1 = not set, the layout decides.
struct DisplayPosition {
  float left = -1;
  float top = -1;
  float width = -1;
  float height = -1;

  /// Takes over each number that is set (>= 0).
  void assignSet(const DisplayPosition& other);
};

/// Reads a "Pos" element: attributes left, top, Width, Height.
DisplayPosition ReadXmlPos(XmlElement pos);

class oTarnNumeric {
 public:
  std::string Caption;
  DisplayPosition position;

  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;
};

class oTarnSlide {
 public:
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
  std::string Caption;
  std::int32_t Color = 0x00FF00;
  std::int32_t index = 0;  ///< the Graph item whose graph receives this curve

  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;
};

class oTarnGraphAxeX {
 public:
  std::string Caption;
  bool axeXAuto = true;
  double axeXmini = 0;
  double axeXmaxi = 100;
  std::int32_t index = 0;  ///< the Graph item whose X axis this item drives

  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;
};

}  // namespace tarnlog

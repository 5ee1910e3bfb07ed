#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "config/DisplaySettings.h"
#include "platform/xml/ContentHandler.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// One data item to record: which one it is, and how it is shown.
/// A Set operation that the value type does not allow changes nothing: read ScopeType afterwards.
class oTarnScope {
 public:
  using enum DisplayKind;

  static constexpr std::int32_t kNoAddress = 0x0FFFFFFF;

  std::string DataName;
  std::string RequestName;
  std::string EcuName;
  std::string FunctionName;
  std::int32_t FunctionAddress = kNoAddress;
  std::string DeviceName;
  std::string DataKey;  ///< the item's `c` in the session document; its key in oTarnParameters
  std::string Unit;
  std::int32_t index = 0;    ///< 1-based position in the recording: see oTarnParameters::renumber
  std::int32_t varType = 0;  ///< value-type code

  DisplayKind ScopeType() const;
  /// Applies the kind's defaults; none, or a number that is no kind, clears (key and address too).
  void setScopeType(DisplayKind type);

  const DisplaySettings& display() const { return display_; }
  /// The settings of each kind; null unless the item is shown so.
  tarnlog::oTarnNumeric* oTarnNumeric() { return std::get_if<tarnlog::oTarnNumeric>(&display_); }
  tarnlog::oTarnSlide* oTarnSlide() { return std::get_if<tarnlog::oTarnSlide>(&display_); }
  tarnlog::oTarnGraph* oTarnGraph() { return std::get_if<tarnlog::oTarnGraph>(&display_); }
  tarnlog::oTarnGraphIndex* oTarnGraphIndex() { return std::get_if<tarnlog::oTarnGraphIndex>(&display_); }
  tarnlog::oTarnGraphAxeX* oTarnGraphAxeX() { return std::get_if<tarnlog::oTarnGraphAxeX>(&display_); }

  /// Whether the value type is that of numbers: texts and byte arrays can be shown as digits only.
  bool isNumber() const;

  /// Releases the settings; what the item is stays.
  void SetNone();
  void SetNumeric(const std::string& caption, const DisplayPosition& position = {});
  void SetSlide(const std::string& caption, double mini, double maxi, std::int32_t color,
                const DisplayPosition& position = {});
  void SetGraph(const std::string& caption, bool AxeYAuto, double AxeYmini, double AxeYmaxi,
                std::int32_t points, std::int32_t color, const DisplayPosition& position = {});
  /// `graphIndex` is rounded to the nearest integer, halves to even.
  void SetGraphIndex(std::int32_t color, float graphIndex);
  void SetGraphAxeX(const std::string& caption, bool axeXAuto, double axeXmini, double axeXmaxi,
                    std::int32_t graphIndex);
  /// Releases the settings and forgets key and address.
  void Clear();

  /// Kinds without such a setting ignore these.
  void ChangeCaption(const std::string& caption);
  void ChangeAxeXNbPoints(std::int32_t points);
  void ChangeAxeY(bool automatic, double mini, double maxi);
  void ChangeColor(std::int32_t color);

  /// The position of the Graph item that this one is drawn on or drives the X axis of; null for kinds without
  /// such a reference.
  std::int32_t* graphReference();
  const std::int32_t* graphReference() const;

  /// Reads what the "Data" element holds; never fails, unreadable attributes leave defaults.
  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;

 private:
  void writeDisplay(ContentHandler& handler) const;

  DisplaySettings display_;
};

}  // namespace tarnlog

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "config/DisplaySettings.h"
#include "platform/xml/ContentHandler.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// One data item to record: which one it is, and how it is shown.
/// A Set operation that the value type does not allow changes nothing: read ScopeType afterwards.
class oTarnScope {
 public:
  static constexpr std::int32_t kNone = 0;
  static constexpr std::int32_t kDigital = 1;
  static constexpr std::int32_t kBarGraph = 2;
  static constexpr std::int32_t kGraph = 3;
  static constexpr std::int32_t kGraphIndex = 4;
  static constexpr std::int32_t kGraphAxeX = 5;

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

  /// One per display type; only the one of the current ScopeType is meaningful.
  std::unique_ptr<tarnlog::oTarnNumeric> oTarnNumeric;
  std::unique_ptr<tarnlog::oTarnSlide> oTarnSlide;
  std::unique_ptr<tarnlog::oTarnGraph> oTarnGraph;
  std::unique_ptr<tarnlog::oTarnGraphIndex> oTarnGraphIndex;
  std::unique_ptr<tarnlog::oTarnGraphAxeX> oTarnGraphAxeX;

  std::int32_t ScopeType() const { return scopeType_; }
  /// Applies the type's defaults; a code outside 1..5 clears (key and address too).
  void setScopeType(std::int32_t type);

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

  /// Act on the settings of the current type; types without such a setting ignore them.
  void ChangeCaption(const std::string& caption);
  void ChangeAxeXNbPoints(std::int32_t points);
  void ChangeAxeY(bool automatic, double mini, double maxi);
  void ChangeColor(std::int32_t color);

  /// The position of the Graph item that this one is drawn on or drives the X axis of; null for types without
  /// such a reference.
  std::int32_t* graphReference();
  const std::int32_t* graphReference() const;

  /// Reads what the "Data" element holds; never fails, unreadable attributes leave defaults.
  void SetXml(XmlElement element);
  void SaxWrite(ContentHandler& handler) const;

 private:
  bool graphic() const;
  void releaseSettings();
  void readDisplay(XmlElement scope);
  void writeDisplay(ContentHandler& handler) const;

  std::int32_t scopeType_ = kNone;
};

}  // namespace tarnlog

#include "config/oTarnScope.h"

#include <array>
#include <cmath>
#include <optional>
#include <string_view>

#include "platform/ferrox3/Value.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

constexpr std::array<const char*, 6> kTypeNames = {"None",  "Digital",    "BarGraph",
                                                   "Graph", "GraphIndex", "GraphAxeX"};

/// Gives the item a settings object with the class's own defaults, read from the child element when there is
/// one.
template <class Settings>
void readSettings(std::unique_ptr<Settings>& settings, XmlElement scope, const char* name) {
  settings = std::make_unique<Settings>();
  if (const XmlElement element = scope.firstChild(name)) settings->SetXml(element);
}

}  // namespace

bool oTarnScope::graphic() const { return varType == ferrox3::kInteger || varType == ferrox3::kDouble; }

void oTarnScope::setScopeType(std::int32_t type) {
  switch (type) {
    case kDigital:
      return SetNumeric("");
    case kBarGraph:
      return SetSlide("", 0, 100, 0xFF0000);
    case kGraph:
      return SetGraph("", true, 0, 100, tarnlog::oTarnGraph::kDefaultPoints, 0xFF0000);
    case kGraphIndex:
      return SetGraphIndex(0x00FF00, 0);
    case kGraphAxeX:
      return SetGraphAxeX("", true, 0, 100, 0);
    default:
      return Clear();
  }
}

void oTarnScope::releaseSettings() {
  oTarnNumeric.reset();
  oTarnSlide.reset();
  oTarnGraph.reset();
  oTarnGraphIndex.reset();
  oTarnGraphAxeX.reset();
}

void oTarnScope::SetNone() {
  releaseSettings();
  scopeType_ = kNone;
}

void oTarnScope::Clear() {
  SetNone();
  DataKey.clear();
  FunctionAddress = kNoAddress;
}

void oTarnScope::SetNumeric(const std::string& caption, const DisplayPosition& position) {
  scopeType_ = kDigital;
  oTarnNumeric = std::make_unique<tarnlog::oTarnNumeric>();
  oTarnNumeric->Caption = caption;
  oTarnNumeric->position.assignSet(position);
}

void oTarnScope::SetSlide(const std::string& caption, double mini, double maxi, std::int32_t color,
                          const DisplayPosition& position) {
  if (scopeType_ == kBarGraph || !graphic()) return;
  scopeType_ = kBarGraph;
  oTarnSlide = std::make_unique<tarnlog::oTarnSlide>();
  oTarnSlide->Caption = caption;
  oTarnSlide->mini = mini;
  oTarnSlide->maxi = maxi;
  oTarnSlide->Color = color;
  oTarnSlide->position.assignSet(position);
}

void oTarnScope::SetGraph(const std::string& caption, bool AxeYAuto, double AxeYmini, double AxeYmaxi,
                          std::int32_t points, std::int32_t color, const DisplayPosition& position) {
  if (!graphic()) return;
  scopeType_ = kGraph;
  oTarnGraph = std::make_unique<tarnlog::oTarnGraph>();
  oTarnGraph->Caption = caption;
  oTarnGraph->AxeYAuto = AxeYAuto;
  oTarnGraph->AxeYmini = AxeYmini;
  oTarnGraph->AxeYmaxi = AxeYmaxi;
  oTarnGraph->points = points;
  oTarnGraph->Color = color;
  oTarnGraph->position.assignSet(position);
}

void oTarnScope::SetGraphIndex(std::int32_t color, float graphIndex) {
  if (!graphic()) return;
  scopeType_ = kGraphIndex;
  oTarnGraphIndex = std::make_unique<tarnlog::oTarnGraphIndex>();
  oTarnGraphIndex->Color = color;
  oTarnGraphIndex->index = roundHalfEven(graphIndex);
}

void oTarnScope::SetGraphAxeX(const std::string& caption, bool axeXAuto, double axeXmini, double axeXmaxi,
                              std::int32_t graphIndex) {
  if (!graphic()) return;
  scopeType_ = kGraphAxeX;
  oTarnGraphAxeX = std::make_unique<tarnlog::oTarnGraphAxeX>();
  oTarnGraphAxeX->Caption = caption;
  oTarnGraphAxeX->axeXAuto = axeXAuto;
  oTarnGraphAxeX->axeXmini = axeXmini;
  oTarnGraphAxeX->axeXmaxi = axeXmaxi;
  oTarnGraphAxeX->index = graphIndex;
}

void oTarnScope::ChangeCaption(const std::string& caption) {
  switch (scopeType_) {
    case kDigital:
      oTarnNumeric->Caption = caption;
      break;
    case kBarGraph:
      oTarnSlide->Caption = caption;
      break;
    case kGraph:
      oTarnGraph->Caption = caption;
      break;
    case kGraphIndex:
      oTarnGraphIndex->Caption = caption;
      break;
    case kGraphAxeX:
      oTarnGraphAxeX->Caption = caption;
      break;
    default:
      break;
  }
}

void oTarnScope::ChangeAxeXNbPoints(std::int32_t points) {
  if (scopeType_ == kGraph) oTarnGraph->points = points;
}

void oTarnScope::ChangeAxeY(bool automatic, double mini, double maxi) {
  if (scopeType_ == kBarGraph) {
    oTarnSlide->mini = mini;
    oTarnSlide->maxi = maxi;
  } else if (scopeType_ == kGraph) {
    oTarnGraph->AxeYAuto = automatic;
    oTarnGraph->AxeYmini = mini;
    oTarnGraph->AxeYmaxi = maxi;
  } else if (scopeType_ == kGraphAxeX) {
    oTarnGraphAxeX->axeXAuto = automatic;
    oTarnGraphAxeX->axeXmini = mini;
    oTarnGraphAxeX->axeXmaxi = maxi;
  }
}

void oTarnScope::ChangeColor(std::int32_t color) {
  if (scopeType_ == kBarGraph) oTarnSlide->Color = color;
  if (scopeType_ == kGraph) oTarnGraph->Color = color;
  if (scopeType_ == kGraphIndex) oTarnGraphIndex->Color = color;
}

std::int32_t* oTarnScope::graphReference() {
  if (scopeType_ == kGraphIndex) return &oTarnGraphIndex->index;
  if (scopeType_ == kGraphAxeX) return &oTarnGraphAxeX->index;
  return nullptr;
}

const std::int32_t* oTarnScope::graphReference() const {
  return const_cast<oTarnScope*>(this)->graphReference();
}

void oTarnScope::SetXml(XmlElement element) {
  const auto readText = [](XmlElement from, const char* name, std::string& value) {
    if (const auto text = from.attribute(name)) value = *text;
  };
  const auto readInteger = [](XmlElement from, const char* name, std::int32_t& value) {
    const auto text = from.attribute(name);
    if (const auto number = text ? wholeInteger(*text) : std::nullopt) value = *number;
  };
  const XmlElement ecu = element.firstChild("ECU");
  readText(element, "name", DataName);
  readText(element, "request", RequestName);
  readText(ecu, "name", EcuName);
  readText(ecu, "function", FunctionName);
  FunctionAddress = kNoAddress;
  readInteger(ecu, "address", FunctionAddress);
  readInteger(element, "index", index);
  if (const XmlElement scope = element.firstChild("Scope")) readDisplay(scope);
}

/// The value type is not known yet, so the settings are made directly: the Set operations would refuse.
void oTarnScope::readDisplay(XmlElement scope) {
  const auto type = scope.attributeOrEmpty("type");
  if (type == kTypeNames[kDigital]) {
    scopeType_ = kDigital;
    readSettings(oTarnNumeric, scope, "Digital");
  } else if (type == kTypeNames[kBarGraph]) {
    scopeType_ = kBarGraph;
    readSettings(oTarnSlide, scope, "BarGraph");
  } else if (type == kTypeNames[kGraph]) {
    scopeType_ = kGraph;
    readSettings(oTarnGraph, scope, "Graph");
  } else if (type == kTypeNames[kGraphIndex]) {
    scopeType_ = kGraphIndex;
    readSettings(oTarnGraphIndex, scope, "GraphIndex");
  } else if (type == kTypeNames[kGraphAxeX]) {
    scopeType_ = kGraphAxeX;
    readSettings(oTarnGraphAxeX, scope, "GraphAxeX");
  }
}

void oTarnScope::SaxWrite(ContentHandler& handler) const {
  SaxAttributes attributes;
  attributes.addAttribute("index", std::to_string(index));
  attributes.addAttribute("name", DataName);
  attributes.addAttribute("request", RequestName);
  if (!Unit.empty()) attributes.addAttribute("unit", Unit);
  handler.startElement("Data", attributes);

  attributes.clear();
  attributes.addAttribute("name", EcuName);
  attributes.addAttribute("function", FunctionName);
  attributes.addAttribute("address", std::to_string(FunctionAddress));
  handler.startElement("ECU", attributes);
  handler.endElement("ECU");

  attributes.clear();
  attributes.addAttribute("type", kTypeNames[static_cast<std::size_t>(scopeType_)]);
  handler.startElement("Scope", attributes);
  writeDisplay(handler);
  handler.endElement("Scope");
  handler.endElement("Data");
}

void oTarnScope::writeDisplay(ContentHandler& handler) const {
  switch (scopeType_) {
    case kDigital:
      return oTarnNumeric->SaxWrite(handler);
    case kBarGraph:
      return oTarnSlide->SaxWrite(handler);
    case kGraph:
      return oTarnGraph->SaxWrite(handler);
    case kGraphIndex:
      return oTarnGraphIndex->SaxWrite(handler);
    case kGraphAxeX:
      return oTarnGraphAxeX->SaxWrite(handler);
    default:
      return;
  }
}

}  // namespace tarnlog

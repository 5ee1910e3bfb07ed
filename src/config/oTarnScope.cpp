#include "config/oTarnScope.h"

#include <optional>
#include <utility>

#include "platform/base/Overloaded.h"
#include "platform/ferrox3/Value.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

bool oTarnScope::isNumber() const { return varType == ferrox3::kInteger || varType == ferrox3::kDouble; }

DisplayKind oTarnScope::ScopeType() const {
  return std::visit([](const auto& settings) { return settings.kKind; }, display_);
}

void oTarnScope::setScopeType(DisplayKind type) {
  switch (type) {
    case kNone:
      break;
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
  }
  Clear();
}

void oTarnScope::SetNone() { display_ = NoDisplay(); }

void oTarnScope::Clear() {
  SetNone();
  DataKey.clear();
  FunctionAddress = kNoAddress;
}

void oTarnScope::SetNumeric(const std::string& caption, const DisplayPosition& position) {
  display_ = tarnlog::oTarnNumeric{.Caption = caption, .position = position.normalized()};
}

void oTarnScope::SetSlide(const std::string& caption, double mini, double maxi, std::int32_t color,
                          const DisplayPosition& position) {
  if (ScopeType() == kBarGraph || !isNumber()) return;
  display_ = tarnlog::oTarnSlide{
      .Caption = caption, .position = position.normalized(), .mini = mini, .maxi = maxi, .Color = color};
}

void oTarnScope::SetGraph(const std::string& caption, bool AxeYAuto, double AxeYmini, double AxeYmaxi,
                          std::int32_t points, std::int32_t color, const DisplayPosition& position) {
  if (!isNumber()) return;
  display_ = tarnlog::oTarnGraph{.Caption = caption,
                                 .position = position.normalized(),
                                 .AxeYAuto = AxeYAuto,
                                 .AxeYmini = AxeYmini,
                                 .AxeYmaxi = AxeYmaxi,
                                 .points = points,
                                 .Color = color};
}

void oTarnScope::SetGraphIndex(std::int32_t color, float graphIndex) {
  if (!isNumber()) return;
  display_ = tarnlog::oTarnGraphIndex{.Caption = {}, .Color = color, .index = roundHalfEven(graphIndex)};
}

void oTarnScope::SetGraphAxeX(const std::string& caption, bool axeXAuto, double axeXmini, double axeXmaxi,
                              std::int32_t graphIndex) {
  if (!isNumber()) return;
  display_ = tarnlog::oTarnGraphAxeX{.Caption = caption,
                                     .axeXAuto = axeXAuto,
                                     .axeXmini = axeXmini,
                                     .axeXmaxi = axeXmaxi,
                                     .index = graphIndex};
}

void oTarnScope::ChangeCaption(const std::string& caption) {
  const auto change = [&](auto& settings) {
    if constexpr (requires { settings.Caption; }) settings.Caption = caption;
  };
  std::visit(change, display_);
}

void oTarnScope::ChangeAxeXNbPoints(std::int32_t points) {
  const auto change = [&](auto& settings) {
    if constexpr (requires { settings.points; }) settings.points = points;
  };
  std::visit(change, display_);
}

void oTarnScope::ChangeAxeY(bool automatic, double mini, double maxi) {
  std::visit(Overloaded{
                 [](NoDisplay&) {},
                 [](tarnlog::oTarnNumeric&) {},
                 [&](tarnlog::oTarnSlide& bar) {
                   bar.mini = mini;
                   bar.maxi = maxi;
                 },
                 [&](tarnlog::oTarnGraph& graph) {
                   graph.AxeYAuto = automatic;
                   graph.AxeYmini = mini;
                   graph.AxeYmaxi = maxi;
                 },
                 [](tarnlog::oTarnGraphIndex&) {},
                 [&](tarnlog::oTarnGraphAxeX& axis) {
                   axis.axeXAuto = automatic;
                   axis.axeXmini = mini;
                   axis.axeXmaxi = maxi;
                 },
             },
             display_);
}

void oTarnScope::ChangeColor(std::int32_t color) {
  const auto change = [&](auto& settings) {
    if constexpr (requires { settings.Color; }) settings.Color = color;
  };
  std::visit(change, display_);
}

std::int32_t* oTarnScope::graphReference() {
  const auto find = [](auto& settings) -> std::int32_t* {
    if constexpr (requires { settings.index; })
      return &settings.index;
    else
      return nullptr;
  };
  return std::visit(find, display_);
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
  // The value type is not known yet: the Set operations would refuse.
  if (auto display = readDisplay(element.firstChild("Scope"))) display_ = std::move(*display);
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

  writeDisplay(handler);
  handler.endElement("Data");
}

void oTarnScope::writeDisplay(ContentHandler& handler) const {
  const auto write = [&](const auto& settings) {
    SaxAttributes attributes;
    attributes.addAttribute("type", settings.kName);
    handler.startElement("Scope", attributes);
    settings.SaxWrite(handler);
    handler.endElement("Scope");
  };
  std::visit(write, display_);
}

}  // namespace tarnlog

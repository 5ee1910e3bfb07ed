#include "config/DisplaySettings.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

void read(XmlElement element, const char* name, std::string& value) {
  if (const auto text = element.attribute(name)) value = *text;
}
void read(XmlElement element, const char* name, double& value) {
  if (const auto text = element.attribute(name)) value = leadingNumber(*text);
}
/// A number beyond the range of the type becomes the nearest that there is.
void read(XmlElement element, const char* name, float& value) {
  constexpr double largest = std::numeric_limits<float>::max();
  if (const auto text = element.attribute(name))
    value = static_cast<float>(std::clamp(leadingNumber(*text), -largest, largest));
}
void read(XmlElement element, const char* name, std::int32_t& value) {
  if (const auto text = element.attribute(name)) value = leadingInteger(*text);
}
void read(XmlElement element, const char* name, bool& value) {
  if (const auto text = element.attribute(name)) value = *text == "1";
}
void read(XmlElement element, DisplayPosition& position) {
  if (const XmlElement pos = element.firstChild("Pos")) position = ReadXmlPos(pos);
}

/// One empty element with its attributes in the order of adding.
class SettingsElement {
 public:
  SettingsElement& add(const char* name, std::string_view value) {
    attributes_.addAttribute(name, value);
    return *this;
  }
  SettingsElement& add(const char* name, double value) { return add(name, exactNumberText(value)); }
  SettingsElement& add(const char* name, std::int32_t value) { return add(name, std::to_string(value)); }
  SettingsElement& addFlag(const char* name, bool value) {
    return add(name, std::string_view(value ? "1" : "0"));
  }
  void write(ContentHandler& handler, const char* element) const {
    handler.startElement(element, attributes_);
    handler.endElement(element);
  }

 private:
  SaxAttributes attributes_;
};

template <class... Settings>
std::optional<DisplaySettings> readOneOf(XmlElement scope,
                                         std::type_identity<std::variant<Settings...>> /*settings*/) {
  std::optional<DisplaySettings> display;
  const auto type = scope.attributeOrEmpty("type");
  const auto readWhenNamed = [&](auto settings) {
    if (type != settings.kName) return;
    if (const XmlElement element = scope.firstChild(settings.kName)) settings.SetXml(element);
    display = std::move(settings);
  };
  (readWhenNamed(Settings()), ...);
  return display;
}

}  // namespace

std::optional<DisplaySettings> readDisplay(XmlElement scope) {
  return readOneOf(scope, std::type_identity<DisplaySettings>());
}

DisplayPosition DisplayPosition::normalized() const {
  const auto orUnset = [](float number) { return number >= 0 ? number : -1; };
  return {orUnset(left), orUnset(top), orUnset(width), orUnset(height)};
}

DisplayPosition ReadXmlPos(XmlElement pos) {
  DisplayPosition position;
  read(pos, "left", position.left);
  read(pos, "top", position.top);
  read(pos, "Width", position.width);
  read(pos, "Height", position.height);
  return position;
}

void oTarnNumeric::SetXml(XmlElement element) {
  read(element, "caption", Caption);
  read(element, position);
}

void oTarnNumeric::SaxWrite(ContentHandler& handler) const {
  SettingsElement().add("caption", std::string_view(Caption)).write(handler, kName);
}

void oTarnSlide::SetXml(XmlElement element) {
  read(element, "caption", Caption);
  read(element, "color", Color);
  read(element, "mini", mini);
  read(element, "maxi", maxi);
  read(element, position);
}

void oTarnSlide::SaxWrite(ContentHandler& handler) const {
  SettingsElement()
      .add("caption", std::string_view(Caption))
      .add("color", Color)
      .add("mini", mini)
      .add("maxi", maxi)
      .write(handler, kName);
}

void oTarnGraph::SetXml(XmlElement element) {
  read(element, "caption", Caption);
  read(element, "axeYmini", AxeYmini);
  read(element, "axeYmaxi", AxeYmaxi);
  read(element, "axeYauto", AxeYAuto);
  read(element, "points", points);
  read(element, "color", Color);
  read(element, position);
}

void oTarnGraph::SaxWrite(ContentHandler& handler) const {
  SettingsElement()
      .add("caption", std::string_view(Caption))
      .add("axeYmini", AxeYmini)
      .add("axeYmaxi", AxeYmaxi)
      .addFlag("axeYauto", AxeYAuto)
      .add("points", points)
      .add("color", Color)
      .write(handler, kName);
}

void oTarnGraphIndex::SetXml(XmlElement element) {
  read(element, "caption", Caption);
  read(element, "index", index);
  read(element, "color", Color);
}

void oTarnGraphIndex::SaxWrite(ContentHandler& handler) const {
  SettingsElement()
      .add("caption", std::string_view(Caption))
      .add("index", index)
      .add("color", Color)
      .write(handler, kName);
}

void oTarnGraphAxeX::SetXml(XmlElement element) {
  read(element, "caption", Caption);
  read(element, "axeXmini", axeXmini);
  read(element, "axeXmaxi", axeXmaxi);
  read(element, "axeXauto", axeXAuto);
  read(element, "index", index);
}

void oTarnGraphAxeX::SaxWrite(ContentHandler& handler) const {
  SettingsElement()
      .add("caption", std::string_view(Caption))
      .add("axeXmini", axeXmini)
      .add("axeXmaxi", axeXmaxi)
      .addFlag("axeXauto", axeXAuto)
      .add("index", index)
      .write(handler, kName);
}

}  // namespace tarnlog
